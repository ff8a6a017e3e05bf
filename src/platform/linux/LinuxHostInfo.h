// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/HostInfo.h"
#include "platform/linux/CpuStatReader.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/MemInfoReader.h"

namespace vtx {

/// The host's statistics by /proc/stat and /proc/meminfo. A processor that is offline keeps its
/// place and its last counters; the call fails when nothing is understood. One engine at a time;
/// owned by the platform, and outlives every array that it gave.
class LinuxHostInfo final : public HostInfo, private KernelMemory {
public:
    LinuxHostInfo(const LinuxRoot& root, const LinuxProcessors& processors, MemInfoReader& memory);

    [[nodiscard]] ProcessorLoadInfo processorLoadInfo() override;
    /// Page counts alone, as `pageCountsOf` makes them.
    [[nodiscard]] HostStatistics statistics64(std::int32_t flavour,
                                              std::span<std::uint32_t> into) override;
    [[nodiscard]] HostPageSize pageSize() override;

    /// Arrays that were given out and have not come back.
    [[nodiscard]] std::size_t outstandingArrays() const;

private:
    /// An array of four words a processor, used again once it came back.
    struct Array {
        std::vector<std::uint32_t> words;
        bool isOut = false;
    };

    [[nodiscard]] Array& freeArray();
    void vmDeallocate(const std::uint32_t* address, std::size_t bytes) noexcept override;

    const LinuxProcessors& processors_;
    CpuStatReader stat_;
    MemInfoReader& memory_;
    std::vector<std::unique_ptr<Array>> arrays_;
};

}  // namespace vtx
