// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "base/Subscription.h"

namespace vtx {

/// The system's own verdict on how hot the machine runs. Main executor.
class ThermalState {
public:
    ThermalState() = default;
    ThermalState(const ThermalState&) = delete;
    ThermalState& operator=(const ThermalState&) = delete;
    virtual ~ThermalState() = default;

    /// From 0, all is well, to 3, the machine must cool down. A system may say other numbers.
    [[nodiscard]] virtual std::int64_t thermalState() = 0;

    /// Tells after the state changed.
    [[nodiscard]] virtual Subscription onThermalStateDidChange(std::function<void()> handler) = 0;
};

}  // namespace vtx
