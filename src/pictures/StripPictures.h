// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QWidget;

namespace vtx {

class PictureStage;

/// The strip and the tray's icon in the states that differ in looks.
namespace stripPictures {

using Made = std::unique_ptr<QWidget>;

[[nodiscard]] Made beforeReadings(PictureStage& stage);
[[nodiscard]] Made usual(PictureStage& stage);
/// Every label as wide as the space that is kept for it, or wider.
[[nodiscard]] Made widest(PictureStage& stage);
[[nodiscard]] Made compact(PictureStage& stage);
/// Every tile, none of them live.
[[nodiscard]] Made symbolsAlone(PictureStage& stage);
/// Every tile with the second choice of its icon, and with the third.
[[nodiscard]] Made secondIcons(PictureStage& stage);
[[nodiscard]] Made thirdIcons(PictureStage& stage);

[[nodiscard]] Made trayUsual(PictureStage& stage);
[[nodiscard]] Made trayWidest(PictureStage& stage);
/// A thermal level, which has no figure.
[[nodiscard]] Made trayLevel(PictureStage& stage);

}  // namespace stripPictures
}  // namespace vtx
