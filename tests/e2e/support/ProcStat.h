// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <thread>
#include <vector>

#include "support/Eventually.h"

namespace vtx::e2e {

/// The machine's processor time as /proc/stat tells it in its first line, in clock ticks of all
/// processors together.
struct CpuTimes {
    std::uint64_t busy = 0;
    std::uint64_t idle = 0;

    static CpuTimes now();
};

/// How busy the machine was, noted whenever it is looked at.
class LoadRecord {
public:
    void look();
    /// Percent of all processors between the two looks that are nearest to these times.
    [[nodiscard]] double percentBetween(SteadyTime from, SteadyTime to) const;

private:
    struct Look {
        SteadyTime when;
        CpuTimes times;
    };
    [[nodiscard]] const Look& nearest(SteadyTime when) const;

    std::vector<Look> looks_;
};

/// Keeps one processor busy for as long as it lives.
class BusyCore {
public:
    BusyCore();

    /// Processor time that it has taken.
    [[nodiscard]] double cpuSeconds();

private:
    std::jthread thread_;
};

}  // namespace vtx::e2e
