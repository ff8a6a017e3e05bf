// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <optional>

#include "base/Clock.h"
#include "base/Property.h"
#include "platform/simulated/LivingLoad.h"

namespace vtx {

/// What a graphics processor is busy with: fractions of its time, 0 to 1.
struct SimulatedGraphicsLoad {
    double device = 0.0;
    double tiler = 0.0;
    double renderer = 0.0;
};

/// The graphics processor of the simulated machine. A new one idles. Any thread.
class SimulatedGraphics {
public:
    explicit SimulatedGraphics(const Clock& clock) : clock_(clock) {}

    void setLoad(SimulatedGraphicsLoad load);
    /// From now on it follows a living load, until one is set.
    void live(std::uint64_t seed);

    [[nodiscard]] SimulatedGraphicsLoad load() const;
    /// The load as its driver keeps it: whole percentages by their names.
    [[nodiscard]] PropertyMap performanceStatistics() const;

private:
    const Clock& clock_;
    mutable std::mutex mutex_;
    SimulatedGraphicsLoad load_;
    Instant livingSince_;
    std::optional<LivingLoad> living_;
};

}  // namespace vtx
