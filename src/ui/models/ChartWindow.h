// SPDX-License-Identifier: MIT
#pragma once

#include "core/HistoryPoint.h"

namespace vtx {

/// The points of a history that lie in the window before that moment, in their order, their values
/// divided by `unit`. What is later than the moment is left out: it is from before the clock was
/// set back, and no plot of this window shows it.
[[nodiscard]] HistorySeries chartWindow(const HistorySeries& history, Date end,
                                        double windowSeconds, double unit = 1.0);

}  // namespace vtx
