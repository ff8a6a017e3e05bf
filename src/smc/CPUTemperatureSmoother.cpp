// SPDX-License-Identifier: MIT
#include "smc/CPUTemperatureSmoother.h"

#include <algorithm>

namespace vtx {

double CPUTemperatureSmoother::push(double value) {
    if (samples_.size() >= windowSize) samples_.erase(samples_.begin());
    samples_.push_back(value);
    auto sorted = samples_;
    std::ranges::sort(sorted);
    return sorted.size() == 2 ? sorted.front() : sorted[sorted.size() / 2];
}

}  // namespace vtx
