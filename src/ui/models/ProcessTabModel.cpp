// SPDX-License-Identifier: MIT
#include "ui/models/ProcessTabModel.h"

#include <fmt/format.h>

#include "language/Localization.h"
#include "language/TimeAgo.h"

namespace vtx {

std::optional<ProcessPlaceholderModel> describeProcessPlaceholder(
    const ProcessTabReadings& readings) {
    if (readings.shown != 0) return std::nullopt;
    if (readings.search.empty()) return ProcessPlaceholderModel{"hourglass", "Loading processes…"};
    return ProcessPlaceholderModel{"magnifyingglass",
                                   fmt::format("No matches for \"{}\"", readings.search)};
}

ProcessFooterModel describeProcessFooter(const ProcessTabReadings& readings) {
    ProcessFooterModel footer;
    footer.count = fmt::format("{} of {}", readings.shown, readings.total);
    if (readings.secondsSinceRefresh)
        footer.updated =
            "Updated " + timeAgo(*readings.secondsSinceRefresh, *Localization::shared().effective);
    return footer;
}

}  // namespace vtx
