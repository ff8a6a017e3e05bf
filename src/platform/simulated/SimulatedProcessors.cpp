// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedProcessors.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "base/Fault.h"

namespace vtx {
namespace {

constexpr std::uint64_t million = 1'000'000;
constexpr std::uint64_t nanosecondsPerTick = 10'000'000;
constexpr std::uint64_t partsPerTick = nanosecondsPerTick * million;
/// The living load is taken as constant for this long, on a grid of its own.
constexpr Duration livingStep = std::chrono::milliseconds(200);
/// The longest span whose parts fit into 64 bits with room to spare.
constexpr std::uint64_t longestSpan = 1'000'000'000'000;

CoreLoad sensible(CoreLoad load) {
    // A NaN, too, becomes zero here.
    load.user = std::fmin(std::fmax(load.user, 0.0), 1.0);
    load.system = std::fmin(std::fmax(load.system, 0.0), 1.0 - load.user);
    load.nice = std::fmin(std::fmax(load.nice, 0.0), 1.0 - load.user - load.system);
    return load;
}

std::uint64_t partsPerMillion(double fraction) {
    return static_cast<std::uint64_t>(std::llround(fraction * static_cast<double>(million)));
}

}  // namespace

void SimulatedProcessors::Counter::add(std::uint64_t nanoseconds, std::uint64_t perMillion) {
    while (nanoseconds > 0) {
        const std::uint64_t span = std::min(nanoseconds, longestSpan);
        part += span * perMillion;
        ticks += static_cast<std::uint32_t>(part / partsPerTick);  // wraps, as the kernel's do
        part %= partsPerTick;
        nanoseconds -= span;
    }
}

void SimulatedProcessors::Core::run(Duration span, CoreLoad during) {
    const auto nanoseconds = static_cast<std::uint64_t>(span.count());
    const std::uint64_t user = partsPerMillion(during.user);
    const std::uint64_t system = std::min(partsPerMillion(during.system), million - user);
    const std::uint64_t nice = std::min(partsPerMillion(during.nice), million - user - system);
    counters[0].add(nanoseconds, user);
    counters[1].add(nanoseconds, system);
    counters[2].add(nanoseconds, million - user - system - nice);
    counters[3].add(nanoseconds, nice);
    const double busy = during.user + during.system + during.nice;
    busyNanoseconds += std::llround(static_cast<double>(span.count()) * std::fmin(busy, 1.0));
    if (!clocks.steps.empty()) clock(span.count(), busy);
}

void SimulatedProcessors::Core::clock(std::int64_t nanoseconds, double busy) {
    const auto running = std::llround(static_cast<double>(nanoseconds) * std::fmin(busy, 1.0));
    clocks.idle += nanoseconds - running;
    // A little load already raises the clock, as governors do.
    const double position =
        std::sqrt(std::fmin(busy, 1.0)) * static_cast<double>(clocks.steps.size() - 1);
    const auto step = static_cast<std::size_t>(position);
    const auto above =
        std::llround(static_cast<double>(running) * (position - std::floor(position)));
    clocks.steps[step] += running - above;
    if (above > 0) clocks.steps[step + 1] += above;
}

SimulatedProcessors::SimulatedProcessors(const Clock& clock, MacShape shape)
    : clock_(clock),
      shape_(std::move(shape)),
      cores_(shape_.cores.size()),
      visible_(cores_.size()),
      countedUntil_(clock.continuous()),
      livingSince_(countedUntil_) {
    for (std::size_t core = 0; core < cores_.size(); ++core)
        cores_[core].clocks.steps.resize(shape_.cores[core] == CoreKind::efficiency
                                             ? shape_.efficiencyStepsMHz.size()
                                             : shape_.performanceStepsMHz.size());
}

void SimulatedProcessors::setLoad(std::size_t core, CoreLoad load) {
    const std::lock_guard lock(mutex_);
    catchUp();
    at(core).load = sensible(load);
    at(core).isAlive = false;
}

void SimulatedProcessors::setLoadOfAll(CoreLoad load) {
    for (std::size_t core = 0; core < shape_.cores.size(); ++core) setLoad(core, load);
}

void SimulatedProcessors::setLoadOf(CoreKind kind, CoreLoad load) {
    for (std::size_t core = 0; core < shape_.cores.size(); ++core)
        if (shape_.cores[core] == kind) setLoad(core, load);
}

void SimulatedProcessors::live(std::uint64_t seed) {
    const std::lock_guard lock(mutex_);
    catchUp();
    living_.emplace(seed);
    livingSince_ = countedUntil_;
    for (Core& core : cores_) core.isAlive = true;
}

void SimulatedProcessors::setTicks(Ticks ticks) {
    for (std::size_t core = 0; core < shape_.cores.size(); ++core) setTicks(core, ticks);
}

void SimulatedProcessors::setTicks(std::size_t core, Ticks ticks) {
    const std::lock_guard lock(mutex_);
    catchUp();
    for (std::size_t i = 0; i < ticks.size(); ++i) at(core).counters[i] = {ticks[i], 0};
}

void SimulatedProcessors::setOnline(std::size_t core, bool online) {
    const std::lock_guard lock(mutex_);
    catchUp();
    at(core).isOnline = online;
}

void SimulatedProcessors::setProcessorCount(std::size_t count) {
    const std::lock_guard lock(mutex_);
    catchUp();
    visible_ = std::min(count, cores_.size());
}

std::size_t SimulatedProcessors::processorCount() const {
    const std::lock_guard lock(mutex_);
    return visible_;
}

void SimulatedProcessors::setAsleep(bool asleep) {
    const std::lock_guard lock(mutex_);
    catchUp();
    asleep_ = asleep;
}

std::vector<SimulatedProcessors::Ticks> SimulatedProcessors::ticks() {
    const std::lock_guard lock(mutex_);
    catchUp();
    std::vector<Ticks> all(visible_);
    for (std::size_t core = 0; core < visible_; ++core)
        for (std::size_t i = 0; i < all[core].size(); ++i)
            all[core][i] = cores_[core].counters[i].ticks;
    return all;
}

std::vector<std::int64_t> SimulatedProcessors::busyNanoseconds() {
    const std::lock_guard lock(mutex_);
    catchUp();
    std::vector<std::int64_t> all;
    all.reserve(cores_.size());
    for (const Core& core : cores_) all.push_back(core.busyNanoseconds);
    return all;
}

std::vector<SimulatedProcessors::ClockResidency> SimulatedProcessors::clockResidencies() {
    const std::lock_guard lock(mutex_);
    catchUp();
    std::vector<ClockResidency> all;
    all.reserve(cores_.size());
    for (const Core& core : cores_) all.push_back(core.clocks);
    return all;
}

SimulatedProcessors::Core& SimulatedProcessors::at(std::size_t core) {
    if (core >= cores_.size()) programmingFault(fmt::format("the machine has no core {}", core));
    return cores_[core];
}

void SimulatedProcessors::catchUp() {
    // Another thread may have looked at the clock later and come here first.
    const Instant from = countedUntil_;
    const Instant now = std::max(from, clock_.continuous());
    countedUntil_ = now;
    if (asleep_) return;
    for (std::size_t number = 0; number < visible_; ++number) {
        Core& core = cores_[number];
        if (!core.isOnline) continue;
        if (core.isAlive)
            catchUpLiving(core, number, from, now);
        else
            core.run(now - from, core.load);
    }
}

void SimulatedProcessors::catchUpLiving(Core& core, std::size_t number, Instant from,
                                        Instant to) const {
    while (from < to) {
        const Duration step = (from - livingSince_) / livingStep * livingStep;
        const Instant end = std::min(to, livingSince_ + step + livingStep);
        core.run(end - from, sensible(living_->at(shape_.cores[number], number, step)));
        from = end;
    }
}

}  // namespace vtx
