// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

#include "base/Clock.h"
#include "platform/simulated/CoreLoad.h"
#include "platform/simulated/LivingLoad.h"
#include "platform/simulated/MacShape.h"

namespace vtx {

/// The cores of the simulated machine and their tick counters, 100 ticks a second each. Nothing
/// runs in between: the counters catch up with the clock whenever somebody looks or changes
/// something, so they are exact at every moment asked about. A new machine idles. Any thread.
class SimulatedProcessors {
public:
    /// Cumulative ticks of one core in the kernel's order: user, system, idle, nice.
    using Ticks = std::array<std::uint32_t, 4>;

    /// How long one core was idle and in each step of its clock table, in nanoseconds. Nothing
    /// counts while it is offline or the machine sleeps.
    struct ClockResidency {
        std::int64_t idle = 0;
        std::vector<std::int64_t> steps;  ///< empty where the machine has no table
    };

    SimulatedProcessors(const Clock& clock, MacShape shape);

    [[nodiscard]] const MacShape& shape() const { return shape_; }

    /// From now on the core is busy with this; fractions are cut to what makes sense. A core that
    /// the machine does not have is a programming fault, here and below.
    void setLoad(std::size_t core, CoreLoad load);
    void setLoadOfAll(CoreLoad load);
    void setLoadOf(CoreKind kind, CoreLoad load);
    /// From now on all cores follow a living load; setting a load ends that for its core.
    void live(std::uint64_t seed);

    /// Sets where the counters of all cores stand, for example shortly before they wrap.
    void setTicks(Ticks ticks);
    void setTicks(std::size_t core, Ticks ticks);

    /// An offline core keeps its place and its counters, which stand still.
    void setOnline(std::size_t core, bool online);
    /// The kernel tells only of the first `count` processors, at most of all; the others are
    /// offline meanwhile.
    void setProcessorCount(std::size_t count);
    [[nodiscard]] std::size_t processorCount() const;

    /// While the machine sleeps no counter counts, idle neither.
    void setAsleep(bool asleep);

    /// The counters of the processors that the kernel tells of, now.
    [[nodiscard]] std::vector<Ticks> ticks();

    /// How long each core was busy so far, in nanoseconds; of all cores, now.
    [[nodiscard]] std::vector<std::int64_t> busyNanoseconds();

    /// Of all cores, now. The busier a core, the higher the steps in which it runs.
    [[nodiscard]] std::vector<ClockResidency> clockResidencies();

private:
    /// One counter: whole ticks and the part of the next one.
    struct Counter {
        std::uint32_t ticks = 0;
        std::uint64_t part = 0;
        void add(std::uint64_t nanoseconds, std::uint64_t partsPerMillion);
    };
    struct Core {
        CoreLoad load;
        bool isAlive = false;
        bool isOnline = true;
        std::array<Counter, 4> counters;
        std::int64_t busyNanoseconds = 0;
        ClockResidency clocks;
        void run(Duration span, CoreLoad during);
        void clock(std::int64_t nanoseconds, double busy);
    };

    Core& at(std::size_t core);
    /// With the lock held.
    void catchUp();
    void catchUpLiving(Core& core, std::size_t number, Instant from, Instant to) const;

    const Clock& clock_;
    const MacShape shape_;
    mutable std::mutex mutex_;
    std::vector<Core> cores_;
    std::size_t visible_;
    bool asleep_ = false;
    Instant countedUntil_;
    Instant livingSince_;
    std::optional<LivingLoad> living_;
};

}  // namespace vtx
