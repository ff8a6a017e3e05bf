// SPDX-License-Identifier: MIT
#include "pass/Statistics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vtx::bench {

Statistics::Microseconds Statistics::quantile(double part) const {
    auto sorted = all_;
    std::ranges::sort(sorted);
    const auto last = sorted.size() - 1;
    const auto place = static_cast<std::size_t>(std::ceil(part * static_cast<double>(last)));
    return sorted.at(std::min(place, last));
}

}  // namespace vtx::bench
