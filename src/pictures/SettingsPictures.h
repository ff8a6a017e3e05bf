// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <memory>

namespace vtx {

class PictureStage;

/// The page of the settings from its first to its last section, as wide as the popover shows it and
/// as a larger window does.
namespace settingsPictures {

[[nodiscard]] std::unique_ptr<QWidget> narrow(PictureStage& stage);
[[nodiscard]] std::unique_ptr<QWidget> wide(PictureStage& stage);
/// While and after looking for updates, and where the login item could not be changed.
[[nodiscard]] std::unique_ptr<QWidget> looking(PictureStage& stage);
[[nodiscard]] std::unique_ptr<QWidget> found(PictureStage& stage);
[[nodiscard]] std::unique_ptr<QWidget> failed(PictureStage& stage);

}  // namespace settingsPictures

}  // namespace vtx
