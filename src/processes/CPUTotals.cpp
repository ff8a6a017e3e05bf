// SPDX-License-Identifier: MIT
#include "processes/CPUTotals.h"

#include <algorithm>

namespace vtx {

void CPUTotals::arrange() {
    const auto pidOf = [](const auto& total) { return total.first; };
    if (!std::ranges::is_sorted(totals_, {}, pidOf)) std::ranges::sort(totals_, {}, pidOf);
    next_ = 0;
}

std::optional<std::uint64_t> CPUTotals::find(std::int32_t pid) {
    if (next_ >= totals_.size() || totals_[next_].first != pid) {
        const auto found =
            std::ranges::lower_bound(totals_, pid, {}, [](const auto& t) { return t.first; });
        if (found == totals_.end() || found->first != pid) return std::nullopt;
        next_ = static_cast<std::size_t>(found - totals_.begin());
    }
    return totals_[next_++].second;
}

}  // namespace vtx
