// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "base/Property.h"

namespace vtx {

/// One temperature sensor of the simulated event system.
struct SimulatedHIDSensor {
    /// Its "Product", of any kind; absent where it has none.
    std::optional<Property> product;
    /// Degrees Celsius now; absent where it has no event to give.
    std::function<std::optional<double>()> celsius;
};

/// The temperature sensors of the simulated machine that speak as human interface devices. Any
/// thread.
class SimulatedHIDSensors {
public:
    void add(Property product, std::function<std::optional<double>()> celsius) {
        add({std::move(product), std::move(celsius)});
    }
    void add(SimulatedHIDSensor sensor) {
        const std::lock_guard lock(mutex_);
        sensors_.push_back(std::move(sensor));
    }
    void clear() {
        const std::lock_guard lock(mutex_);
        sensors_.clear();
    }
    [[nodiscard]] std::vector<SimulatedHIDSensor> all() const {
        const std::lock_guard lock(mutex_);
        return sensors_;
    }

private:
    mutable std::mutex mutex_;
    std::vector<SimulatedHIDSensor> sensors_;
};

}  // namespace vtx
