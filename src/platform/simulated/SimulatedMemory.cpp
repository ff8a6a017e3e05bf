// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedMemory.h"

#include <chrono>
#include <cmath>
#include <utility>

#include "platform/MemoryPressureSource.h"

namespace vtx {
namespace {

constexpr double allPages =
    static_cast<double>(SimulatedMemory::totalBytes / SimulatedMemory::pageSize);
constexpr Duration betweenLooks = std::chrono::seconds(5);
constexpr std::uint64_t livingSwap = std::uint64_t{2} << 30;
// Parts of the memory in use at which the simulated kernel warns, and at which it despairs.
constexpr double warnAbove = 0.88;
constexpr double criticalAbove = 0.93;
constexpr double swapsAbove = 0.75;

std::uint64_t pagesFor(double part) {
    return static_cast<std::uint64_t>(std::llround(part * allPages));
}

/// The usual parts of a machine that uses this much of its memory.
VMPageCounts pagesAt(double used) {
    VMPageCounts pages;
    pages.wired = pagesFor(0.12);
    pages.compressor = pagesFor(std::fmax(0.0, used - 0.5) * 0.4);
    pages.active = pagesFor(used) - pages.wired - pages.compressor;
    pages.speculative = pagesFor(0.01);
    pages.inactive = pagesFor((1.0 - used) * 0.7);
    pages.free = pagesFor(1.0 - used) - pages.inactive - pages.speculative;
    return pages;
}

}  // namespace

SimulatedMemory::SimulatedMemory(Clock& clock)
    : clock_(clock), pages_(pagesAt(1.0 / 3.0)), told_(memoryPressureNormal) {
    swap_.pageSize = pageSize;
}

void SimulatedMemory::setPages(const VMPageCounts& pages) {
    const std::lock_guard lock(mutex_);
    living_.reset();
    pages_ = pages;
}

void SimulatedMemory::setSwap(std::uint64_t total, std::uint64_t used) {
    const std::lock_guard lock(mutex_);
    swap_.total = total;
    swap_.used = used;
}

VMPageCounts SimulatedMemory::pages() const {
    const std::lock_guard lock(mutex_);
    return living_ ? pagesAt(living_->memory(clock_.continuous() - livingSince_)) : pages_;
}

SwapUsageRecord SimulatedMemory::swap() const {
    const std::lock_guard lock(mutex_);
    if (!living_) return swap_;
    const double used = living_->memory(clock_.continuous() - livingSince_);
    SwapUsageRecord swap = swap_;
    swap.total = livingSwap;
    swap.used = static_cast<std::uint64_t>(std::fmax(0.0, used - swapsAbove) * livingSwap);
    return swap;
}

void SimulatedMemory::live(std::uint64_t seed) {
    {
        const std::lock_guard lock(mutex_);
        living_.emplace(seed);
        livingSince_ = clock_.continuous();
    }
    watchPressure();
}

void SimulatedMemory::watchPressure() {
    std::optional<double> used;
    {
        const std::lock_guard lock(mutex_);
        if (living_) used = living_->memory(clock_.continuous() - livingSince_);
    }
    if (!used) return;
    const std::uint32_t data = *used >= criticalAbove ? memoryPressureCritical
                               : *used >= warnAbove   ? memoryPressureWarn
                                                      : memoryPressureNormal;
    if (std::exchange(told_, data) != data) setPressure(data);
    nextWatch_ = clock_.schedule(clock_.continuous() + betweenLooks, betweenLooks / 10,
                                 [this] { watchPressure(); });
}

}  // namespace vtx
