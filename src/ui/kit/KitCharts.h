// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QWidget;

namespace vtx {

/// Charts in their styles and states, and segmented controls in theirs, with sample values: a part
/// of the kit's page.
[[nodiscard]] std::unique_ptr<QWidget> makeChartSheet();

}  // namespace vtx
