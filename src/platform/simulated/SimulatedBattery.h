// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>

#include "base/Clock.h"
#include "base/Property.h"

namespace vtx {

/// What the simulated battery says of itself; what is absent it does not say.
struct BatteryFigures {
    std::optional<std::int64_t> currentCapacity = 80;  ///< percent
    std::optional<std::int64_t> maxCapacity = 100;
    std::optional<bool> isCharging = false;
    std::optional<std::int64_t> minutesToFull = -1;
    std::optional<std::int64_t> minutesToEmpty = -1;

    std::optional<std::int64_t> rawCurrentCapacity = 3600;  ///< mAh
    std::optional<std::int64_t> rawMaxCapacity = 4500;
    std::optional<std::int64_t> designCapacity = 5000;
    std::optional<std::int64_t> voltage = 12'400;  ///< mV
    std::optional<std::int64_t> amperage = 0;      ///< mA, negative while discharging
    std::optional<std::int64_t> cycleCount = 120;
    std::optional<std::int64_t> temperature = 3050;  ///< hundredths of a degree Celsius
};

/// The battery of the simulated machine. Any thread.
class SimulatedBattery {
public:
    explicit SimulatedBattery(const Clock& clock) : clock_(clock) {}

    void set(const BatteryFigures& figures);
    [[nodiscard]] BatteryFigures figures() const;

    /// From now on it drains for ten minutes and charges for ten, until figures are set.
    void live();
    /// Whether the living battery drains now; absent while it does not live.
    [[nodiscard]] std::optional<bool> isDraining() const;

    /// As the power-source service describes it.
    [[nodiscard]] PropertyMap description() const;
    /// As its own registry entry does, where a negative amperage has lost its sign.
    [[nodiscard]] PropertyMap properties() const;

private:
    [[nodiscard]] BatteryFigures living(Duration since) const;

    const Clock& clock_;
    mutable std::mutex mutex_;
    BatteryFigures figures_;
    std::optional<Instant> livingSince_;
};

}  // namespace vtx
