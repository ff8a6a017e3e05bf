// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/HostInfo.h"
#include "platform/linux/CpuStat.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// The host's statistics by /proc/stat: one `pread` a call, of as many bytes as the processors'
/// lines took the last time. A processor whose line is missing (it is offline) or is not understood
/// keeps its place and its last counters; the call fails when no line is understood. One engine at
/// a time; owned by the platform, and outlives every array that it gave.
class LinuxHostInfo final : public HostInfo, private KernelMemory {
public:
    LinuxHostInfo(const LinuxRoot& root, const LinuxProcessors& processors);

    [[nodiscard]] ProcessorLoadInfo processorLoadInfo() override;

    /// Arrays that were given out and have not come back.
    [[nodiscard]] std::size_t outstandingArrays() const;

private:
    /// An array of four words a processor, used again once it came back.
    struct Array {
        std::vector<std::uint32_t> words;
        bool isOut = false;
    };

    [[nodiscard]] bool readTicks();
    [[nodiscard]] Array& freeArray();
    void vmDeallocate(const std::uint32_t* address, std::size_t bytes) noexcept override;

    const LinuxProcessors& processors_;
    KeptFile stat_;
    std::size_t bytesWanted_;
    std::vector<ProcessorTicks> ticks_;  ///< by place
    std::vector<std::unique_ptr<Array>> arrays_;
};

}  // namespace vtx
