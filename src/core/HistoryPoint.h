// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "base/Date.h"

namespace vtx {

/// One value of a history, known by the moment of the pass that took it.
struct HistoryPoint {
    Date timestamp;
    double value = 0.0;  ///< A fraction or bytes per second, by the series.

    friend bool operator==(const HistoryPoint&, const HistoryPoint&) = default;
};

/// A history, oldest first. Gaps in time are wanted: it stands still while nobody looks.
using HistorySeries = std::vector<HistoryPoint>;

/// Appends the point and lets go of what is older than the window before it. Only once `slack` such
/// points have gathered are they removed, all at once, so that the series is rarely moved.
void appendTrimmed(HistorySeries& series, const HistoryPoint& point, double windowSeconds,
                   std::size_t slack);

/// The points of the last window of the series, which ends with its last point and not now: one
/// that stood still for an hour still has its last stretch. All of them, none averaged.
[[nodiscard]] HistorySeries trimmed(const HistorySeries& series, double windowSeconds);

}  // namespace vtx
