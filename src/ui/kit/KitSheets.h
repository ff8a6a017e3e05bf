// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QWidget;

/// The groups of the kit's page: each a card with its title and one kind of part in its states.
namespace vtx::sheets {

[[nodiscard]] std::unique_ptr<QWidget> buttons();
[[nodiscard]] std::unique_ptr<QWidget> pills();
[[nodiscard]] std::unique_ptr<QWidget> usageBars();
[[nodiscard]] std::unique_ptr<QWidget> perCoreBars();
[[nodiscard]] std::unique_ptr<QWidget> manyCores();
[[nodiscard]] std::unique_ptr<QWidget> gauges();
[[nodiscard]] std::unique_ptr<QWidget> banners();
[[nodiscard]] std::unique_ptr<QWidget> heroes();
[[nodiscard]] std::unique_ptr<QWidget> figures();
[[nodiscard]] std::unique_ptr<QWidget> properties();
[[nodiscard]] std::unique_ptr<QWidget> lists();
[[nodiscard]] std::unique_ptr<QWidget> placeholders();
[[nodiscard]] std::unique_ptr<QWidget> form();
[[nodiscard]] std::unique_ptr<QWidget> tiles();

}  // namespace vtx::sheets
