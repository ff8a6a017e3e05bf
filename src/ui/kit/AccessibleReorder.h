// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace vtx::accessibility {

/// Tells listeners, where there are any, that a widget has other parts now, so that they trust none
/// that they remember.
void announceReorder(QWidget& widget);

}  // namespace vtx::accessibility
