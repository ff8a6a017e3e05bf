// SPDX-License-Identifier: MIT
#include "memory/MemoryMonitorEngine.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <span>

#include "base/Clock.h"
#include "base/Log.h"
#include "platform/HostInfo.h"
#include "platform/Ports.h"
#include "platform/Sysctl.h"
#include "telemetry/SysctlReader.h"

namespace vtx {
namespace {

constexpr Logger logger{"MemoryMonitor"};

/// The page size of the processors that this was made for.
constexpr std::uint64_t usualPageSize = 16'384;

/// More words than the kernel's record has today, so that a longer one still fits.
constexpr std::size_t statisticsWords = 104;

// Places of the counts in that record, in words.
constexpr std::size_t freeCount = 0;
constexpr std::size_t activeCount = 1;
constexpr std::size_t inactiveCount = 2;
constexpr std::size_t wireCount = 3;
constexpr std::size_t speculativeCount = 23;
constexpr std::size_t compressorPageCount = 32;

// The swap record, in bytes.
constexpr std::size_t swapRecordBytes = 32;
constexpr std::size_t swapTotal = 0;
constexpr std::size_t swapUsed = 16;

std::uint64_t readPageSize(HostInfo& hostInfo) {
    const auto [result, bytes] = hostInfo.pageSize();
    return result == kernSuccess && bytes != 0 ? bytes : usualPageSize;
}

std::uint64_t number64(std::span<const std::byte, swapRecordBytes> record, std::size_t at) {
    std::uint64_t value = 0;
    std::memcpy(&value, record.data() + at, sizeof value);
    return value;
}

}  // namespace

MemoryMonitorEngine::MemoryMonitorEngine(const Ports& ports)
    : hostInfo_(ports.hostInfo),
      sysctl_(ports.sysctl),
      clock_(ports.clock),
      totalBytes_(SysctlReader(ports.sysctl).uint64("hw.memsize").value_or(0)),
      pageSize_(readPageSize(ports.hostInfo)) {}

std::optional<MemoryStats> MemoryMonitorEngine::sample(MemoryStats::Pressure currentPressure) {
    const auto pages = readPages();
    if (!pages) return std::nullopt;
    const auto swap = readSwap();
    return MemoryStats::make(*pages, pageSize_, totalBytes_, swap, currentPressure, clock_.now());
}

std::optional<MemoryPages> MemoryMonitorEngine::readPages() const {
    std::array<std::uint32_t, statisticsWords> words{};
    const auto [result, count] = hostInfo_.statistics64(hostVMInfo64, words);
    if (result != kernSuccess) {
        logger.error("host_statistics64 failed: kr={}", result);
        return std::nullopt;
    }
    return MemoryPages{words[activeCount],         words[wireCount], words[inactiveCount],
                       words[compressorPageCount], words[freeCount], words[speculativeCount]};
}

std::optional<SwapUsage> MemoryMonitorEngine::readSwap() const {
    std::array<std::byte, swapRecordBytes> record{};
    std::size_t size = record.size();
    if (const int error = sysctl_.sysctlbyname("vm.swapusage", record, size); error != 0) {
        logger.error("sysctl vm.swapusage failed: errno={}", error);
        return std::nullopt;
    }
    return SwapUsage{number64(record, swapTotal), number64(record, swapUsed)};
}

}  // namespace vtx
