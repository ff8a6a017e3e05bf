// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>
#include <string_view>

class QFileDialog;
class QWidget;

namespace vtx {

class MetricsCoordinator;

/// Saves the last hour of the histories where the user says.
namespace historyExport {

/// Opens the dialog that asks where, before `parent`, and returns; a choice is written, and a
/// failure told. The dialog deletes itself. The coordinator must outlive `parent`.
QFileDialog* ask(MetricsCoordinator& coordinator, QWidget& parent);

/// Replaces the file whole. Absent after success, otherwise what went wrong, in words.
[[nodiscard]] std::optional<QString> write(const QString& file, std::string_view text);

}  // namespace historyExport

}  // namespace vtx
