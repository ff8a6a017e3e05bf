// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedGraphics.h"

#include <cmath>

namespace vtx {
namespace {

constexpr double tilerShare = 0.35;
constexpr double rendererShare = 0.9;

Property percentage(double fraction) {
    return std::int64_t{std::llround(std::fmin(std::fmax(fraction, 0.0), 1.0) * 100.0)};
}

}  // namespace

void SimulatedGraphics::setLoad(SimulatedGraphicsLoad load) {
    const std::lock_guard lock(mutex_);
    load_ = load;
    living_.reset();
}

void SimulatedGraphics::live(std::uint64_t seed) {
    const std::lock_guard lock(mutex_);
    living_.emplace(seed);
    livingSince_ = clock_.continuous();
}

SimulatedGraphicsLoad SimulatedGraphics::load() const {
    const std::lock_guard lock(mutex_);
    if (!living_) return load_;
    const double load = living_->graphics(clock_.continuous() - livingSince_);
    return {load, load * tilerShare, load * rendererShare};
}

PropertyMap SimulatedGraphics::performanceStatistics() const {
    const SimulatedGraphicsLoad now = load();
    return {{"Device Utilization %", percentage(now.device)},
            {"Tiler Utilization %", percentage(now.tiler)},
            {"Renderer Utilization %", percentage(now.renderer)}};
}

}  // namespace vtx
