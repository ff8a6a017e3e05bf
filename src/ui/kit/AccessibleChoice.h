// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace vtx::accessibility {

/// Tells listeners, where there are any, that a part is the chosen one of its group now, or no
/// longer.
void announceChoice(QWidget& widget, int index);

}  // namespace vtx::accessibility
