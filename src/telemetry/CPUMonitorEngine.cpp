// SPDX-License-Identifier: MIT
#include "telemetry/CPUMonitorEngine.h"

#include <utility>

#include "base/Clock.h"
#include "base/Log.h"
#include "platform/HostInfo.h"

namespace vtx {
namespace {

constexpr Logger logger{"CPUMonitor"};
constexpr std::size_t wordsPerProcessor = 4;

}  // namespace

CPUMonitorEngine::CPUMonitorEngine(HostInfo& hostInfo, Clock& clock, CoreLayout layout)
    : hostInfo_(hostInfo), clock_(clock), layout_(std::move(layout)) {}

std::optional<CPUStats> CPUMonitorEngine::nextSample() {
    auto sample = readRawSample();
    if (!sample) return std::nullopt;
    std::optional<CPUStats> stats;
    if (lastSample_) stats = CPUStats::make(*sample, *lastSample_, layout_);
    lastSample_ = std::move(sample);
    return stats;
}

std::optional<RawCPUSample> CPUMonitorEngine::readRawSample() {
    const ProcessorLoadInfo info = hostInfo_.processorLoadInfo();
    if (info.result != kernSuccess || info.words.isNull()) {
        logger.error("host_processor_info failed: kr={}", info.result);
        return std::nullopt;
    }
    const auto words = info.words.words();
    const std::size_t count = info.processorCount;
    if (count == 0 || words.size() / wordsPerProcessor < count) {
        logger.error("host_processor_info returned implausible counts: cpus={}, entries={}", count,
                     words.size());
        return std::nullopt;
    }
    RawCPUSample sample;
    sample.perCpu.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto four = words.subspan(i * wordsPerProcessor, wordsPerProcessor);
        sample.perCpu.push_back({four[0], four[1], four[2], four[3]});
    }
    sample.timestamp = clock_.now();
    return sample;
}

}  // namespace vtx
