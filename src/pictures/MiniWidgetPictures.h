// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QWidget;

namespace vtx {

class PictureStage;

/// The mini widget in the states that differ in looks.
namespace miniWidgetPictures {

using Made = std::unique_ptr<QWidget>;

[[nodiscard]] Made beforeReadings(PictureStage& stage);
[[nodiscard]] Made usual(PictureStage& stage);
/// Every figure as wide as it gets.
[[nodiscard]] Made widest(PictureStage& stage);
/// A thermal level, which has no figure, and bars that are all but empty.
[[nodiscard]] Made level(PictureStage& stage);

}  // namespace miniWidgetPictures
}  // namespace vtx
