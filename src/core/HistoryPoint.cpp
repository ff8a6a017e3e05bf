// SPDX-License-Identifier: MIT
#include "core/HistoryPoint.h"

#include <algorithm>
#include <iterator>

namespace vtx {
namespace {

/// The moment that much before another.
Date before(Date end, double spanSeconds) {
    return end - std::chrono::duration_cast<Date::duration>(seconds(spanSeconds));
}

}  // namespace

void appendTrimmed(HistorySeries& series, const HistoryPoint& point, double windowSeconds,
                   std::size_t slack) {
    series.push_back(point);
    const Date cutoff = before(point.timestamp, windowSeconds);
    if (series.front().timestamp >= cutoff) return;

    // From the front, since few are stale at a time; the clock may have been set, so that the
    // order of the points is not one of their moments.
    const auto kept = std::ranges::find_if(
        series, [cutoff](const HistoryPoint& each) { return each.timestamp >= cutoff; });
    if (kept == series.end()) {
        series.erase(series.begin(), std::prev(series.end()));
    } else if (static_cast<std::size_t>(kept - series.begin()) >= slack) {
        series.erase(series.begin(), kept);
    }
}

HistorySeries trimmed(const HistorySeries& series, double windowSeconds) {
    HistorySeries window;
    if (series.empty()) return window;
    const Date cutoff = before(series.back().timestamp, windowSeconds);
    std::ranges::copy_if(series, std::back_inserter(window),
                         [cutoff](const HistoryPoint& each) { return each.timestamp >= cutoff; });
    return window;
}

}  // namespace vtx
