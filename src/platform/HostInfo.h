// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

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

/// The flavour of `statistics64` that counts pages.
inline constexpr std::int32_t hostVMInfo64 = 4;

/// The answer of `host_statistics64`.
struct HostStatistics {
    KernReturn result = kernFailure;
    /// How many words were written, which may be fewer than there was space for.
    std::uint32_t count = 0;
};

/// The answer of `host_page_size`.
struct HostPageSize {
    KernReturn result = kernFailure;
    std::uint64_t bytes = 0;
};

/// Statistics of the host. Called by one engine at a time.
class HostInfo {
public:
    HostInfo() = default;
    HostInfo(const HostInfo&) = delete;
    HostInfo& operator=(const HostInfo&) = delete;
    virtual ~HostInfo() = default;

    [[nodiscard]] virtual ProcessorLoadInfo processorLoadInfo() = 0;

    /// `host_statistics64` into the caller's words; on failure they mean nothing.
    [[nodiscard]] virtual HostStatistics statistics64(std::int32_t flavour,
                                                      std::span<std::uint32_t> into) = 0;

    /// `host_page_size`. Any thread.
    [[nodiscard]] virtual HostPageSize pageSize() = 0;
};

}  // namespace vtx
