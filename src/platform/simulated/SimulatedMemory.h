// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>

#include "base/Clock.h"
#include "base/Signal.h"
#include "platform/shapes/Memory.h"
#include "platform/simulated/LivingLoad.h"

namespace vtx {

/// The memory of the simulated machine: 16 GiB in pages of 16 KiB, a third of it in use at first
/// and no swap. Setters of the pressure, and `live`, belong to the main executor; the rest is for
/// any thread.
class SimulatedMemory {
public:
    static constexpr std::uint64_t totalBytes = std::uint64_t{16} << 30;
    static constexpr std::uint64_t pageSize = 16'384;

    explicit SimulatedMemory(Clock& clock);

    void setPages(const VMPageCounts& pages);
    void setSwap(std::uint64_t total, std::uint64_t used);
    [[nodiscard]] VMPageCounts pages() const;
    [[nodiscard]] SwapUsageRecord swap() const;

    /// The kernel tells this, which may name several levels at once or none.
    void setPressure(std::uint32_t data) { pressureChanged.emit(data); }
    Signal<std::uint32_t> pressureChanged;

    /// From now on it fills and empties, swaps when it is full, and now and then is under pressure,
    /// until pages are set.
    void live(std::uint64_t seed);

private:
    void watchPressure();

    Clock& clock_;
    mutable std::mutex mutex_;
    VMPageCounts pages_;
    SwapUsageRecord swap_;
    std::optional<LivingLoad> living_;
    Instant livingSince_;

    // Main executor alone.
    Subscription nextWatch_;
    std::uint32_t told_;
};

}  // namespace vtx
