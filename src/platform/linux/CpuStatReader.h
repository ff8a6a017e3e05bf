// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/linux/CpuStat.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// The processors' counters by /proc/stat: one `pread` a reading, of as many bytes as their lines
/// took the last time. A processor whose line is missing (it is offline) or is not understood keeps
/// its last counters. One thread at a time.
class CpuStatReader {
public:
    CpuStatReader(const LinuxRoot& root, const LinuxProcessors& processors);

    /// False, and nothing changed, when no line is understood.
    [[nodiscard]] bool read();
    /// By place.
    [[nodiscard]] std::span<const ProcessorTicks> ticks() const { return ticks_; }

private:
    const LinuxProcessors& processors_;
    KeptFile stat_;
    std::size_t bytesWanted_;
    std::vector<ProcessorTicks> ticks_;
};

}  // namespace vtx
