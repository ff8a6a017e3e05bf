// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HostInfo.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedProcessors.h"

namespace vtx {

/// The simulated machine's tick counters as the kernel hands them out. Any thread.
class SimulatedHostInfo final : public HostInfo, private KernelMemory {
public:
    SimulatedHostInfo(SimulatedProcessors& processors, Instruments& instruments)
        : processors_(processors), instruments_(instruments) {}

    [[nodiscard]] ProcessorLoadInfo processorLoadInfo() override;

private:
    void vmDeallocate(const std::uint32_t* address, std::size_t bytes) noexcept override;
    KernelArray allocate(const std::vector<std::uint32_t>& words);

    SimulatedProcessors& processors_;
    Instruments& instruments_;
};

}  // namespace vtx
