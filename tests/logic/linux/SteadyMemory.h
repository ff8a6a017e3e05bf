// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/MemInfoReader.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {

/// No device ever comes or goes.
struct NoChanges final : DeviceChanges {
    std::uint64_t generation() override { return 1; }
};

/// A reader of the memory for ports of which a test looks at something else.
struct SteadyMemory {
    explicit SteadyMemory(const LinuxRoot& root) : reader(root, clock, changes) {}

    ManualClock clock;
    NoChanges changes;
    MemInfoReader reader;
};

}  // namespace vtx::test
