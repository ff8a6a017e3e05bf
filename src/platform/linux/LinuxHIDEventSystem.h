// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HIDEventSystem.h"

namespace vtx {

/// The event system, whose symbols no process has here: sensors speak through hwmon. Owned by the
/// platform.
class LinuxHIDEventSystem final : public HIDEventSystem {
public:
    [[nodiscard]] std::unique_ptr<HIDEventFunctions> open(int mode) override;
};

}  // namespace vtx
