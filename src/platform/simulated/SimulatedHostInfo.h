// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HostInfo.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedMemory.h"
#include "platform/simulated/SimulatedProcessors.h"

namespace vtx {

/// The simulated machine's tick counters and page counts as the kernel hands them out. Any thread.
class SimulatedHostInfo final : public HostInfo, private KernelMemory {
public:
    SimulatedHostInfo(SimulatedProcessors& processors, const SimulatedMemory& memory,
                      Instruments& instruments)
        : processors_(processors), memory_(memory), instruments_(instruments) {}

    [[nodiscard]] ProcessorLoadInfo processorLoadInfo() override;
    [[nodiscard]] HostStatistics statistics64(std::int32_t flavour,
                                              std::span<std::uint32_t> into) override;
    [[nodiscard]] HostPageSize pageSize() override;

private:
    void vmDeallocate(const std::uint32_t* address, std::size_t bytes) noexcept override;
    KernelArray allocate(const std::vector<std::uint32_t>& words);

    SimulatedProcessors& processors_;
    const SimulatedMemory& memory_;
    Instruments& instruments_;
};

}  // namespace vtx
