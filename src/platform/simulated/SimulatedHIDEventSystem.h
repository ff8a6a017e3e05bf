// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HIDEventSystem.h"

namespace vtx {

/// The event system of a simulated machine on which it cannot be looked up.
class SimulatedHIDEventSystem final : public HIDEventSystem {
public:
    [[nodiscard]] std::unique_ptr<HIDEventFunctions> open(int) override { return nullptr; }
};

}  // namespace vtx
