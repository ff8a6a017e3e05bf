// SPDX-License-Identifier: MIT
#include "platform/linux/ProcessUsages.h"

#include <algorithm>

namespace vtx {

void ProcessUsages::replace(List all) {
    const std::lock_guard lock(mutex_);
    all_.swap(all);
}

std::optional<RusageInfo> ProcessUsages::find(std::int32_t pid) const {
    const std::lock_guard lock(mutex_);
    const auto found =
        std::ranges::lower_bound(all_, pid, {}, [](const auto& usage) { return usage.first; });
    if (found == all_.end() || found->first != pid) return std::nullopt;
    return found->second;
}

}  // namespace vtx
