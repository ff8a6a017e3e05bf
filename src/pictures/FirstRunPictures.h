// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QWidget;

namespace vtx {

class PictureStage;

/// The choice of a language at the first start.
namespace firstRunPictures {

using Made = std::unique_ptr<QWidget>;

[[nodiscard]] Made asked(PictureStage& stage);

}  // namespace firstRunPictures
}  // namespace vtx
