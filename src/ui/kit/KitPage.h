// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QWidget;

namespace vtx {

/// Every piece of the kit on one page, with sample values: for looking at, and for pictures.
[[nodiscard]] std::unique_ptr<QWidget> makeKitPage();

}  // namespace vtx
