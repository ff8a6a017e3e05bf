// SPDX-License-Identifier: MIT
#include "ui/models/ChartWindow.h"

#include <algorithm>

namespace vtx {

HistorySeries chartWindow(const HistorySeries& history, Date end, double windowSeconds,
                          double unit) {
    const Date begin = end - std::chrono::duration_cast<Date::duration>(seconds(windowSeconds));
    const auto isShown = [begin, end](const HistoryPoint& each) {
        return each.timestamp >= begin && each.timestamp <= end;
    };
    HistorySeries window;
    // Counted first: a history holds an hour, and the usual window is a minute.
    window.reserve(static_cast<std::size_t>(std::ranges::count_if(history, isShown)));
    for (const HistoryPoint& each : history)
        if (isShown(each)) window.push_back({each.timestamp, each.value / unit});
    return window;
}

}  // namespace vtx
