// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/KernReturn.h"
#include "platform/KernelArray.h"

namespace vtx {

/// The answer of `host_processor_info` for the flavour `PROCESSOR_CPU_LOAD_INFO`.
struct ProcessorLoadInfo {
    KernReturn result = kernFailure;
    /// Logical processors, those that are offline included.
    std::uint32_t processorCount = 0;
    /// Four cumulative tick counters for each processor, in its number's place: user, system, idle,
    /// nice. They wrap at 2^32 and are frozen while the processor is offline.
    KernelArray words;
};

/// Statistics of the host. Called by one engine at a time.
class HostInfo {
public:
    HostInfo() = default;
    HostInfo(const HostInfo&) = delete;
    HostInfo& operator=(const HostInfo&) = delete;
    virtual ~HostInfo() = default;

    [[nodiscard]] virtual ProcessorLoadInfo processorLoadInfo() = 0;
};

}  // namespace vtx
