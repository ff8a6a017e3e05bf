// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

#include "ui/models/SettingsModel.h"

class QWidget;

namespace vtx {

class MetricsCoordinator;
class SettingsSink;

/// The widget of one row, and how it comes to show another state of it.
struct SettingsRowView {
    std::string_view id;
    QWidget* widget = nullptr;
    std::function<void(const SettingsRow&)> show;
};

/// Makes the widget for a row's kind; it shows the row already and has no parent yet. Sink and
/// coordinator must outlive it.
[[nodiscard]] SettingsRowView makeSettingsRow(const SettingsRow& row, SettingsSink& sink,
                                              MetricsCoordinator& coordinator);

}  // namespace vtx
