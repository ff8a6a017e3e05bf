// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "platform/MemoryPressureSource.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/MemInfoReader.h"
#include "platform/linux/PressureTriggers.h"
#include "platform/linux/RunLoop.h"

namespace vtx {

/// Memory pressure by the kernel's account of stalls, /proc/pressure/memory: a warning where some
/// task waited for 150 ms of two seconds, critical where all did for 200 ms.
///
/// Where the kernel takes triggers nothing is read and nothing wakes until one fires. Triggers
/// never tell of recovery: after an event the stalls are looked at once a window, until a whole
/// window had less than half of them, which is told as normal. Where triggers are refused, the
/// averages of the last ten seconds are held against the same shares whenever the memory is
/// sampled, so that nothing is told while nobody samples it. Without such a file the level stays
/// normal. Main executor; owned by the platform; outlives its sources.
class LinuxMemoryPressure final : public MemoryPressureSources {
public:
    LinuxMemoryPressure(const LinuxRoot& root, RunLoop& loop, Clock& clock,
                        PressureTriggers& triggers, MemInfoReader& memory)
        : root_(root), loop_(loop), clock_(clock), triggers_(triggers), memory_(memory) {}

    /// Never null.
    [[nodiscard]] std::unique_ptr<MemoryPressureSource> create(std::uint32_t mask) override;

private:
    const LinuxRoot& root_;
    RunLoop& loop_;
    Clock& clock_;
    PressureTriggers& triggers_;
    MemInfoReader& memory_;
};

}  // namespace vtx
