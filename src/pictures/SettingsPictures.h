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

}  // namespace settingsPictures

}  // namespace vtx
