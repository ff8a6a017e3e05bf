// SPDX-License-Identifier: MIT
#include "telemetry/CPUClockMonitorEngine.h"

#include <utility>

#include "base/Log.h"

namespace vtx {
namespace {

constexpr Logger logger{"CPUClockMonitor"};

}  // namespace

std::shared_ptr<CPUClockMonitorEngine> CPUClockMonitorEngine::make(const CoreLayout& layout) {
    if (layout.pCoreFrequencyStepsMHz.empty() && layout.eCoreFrequencyStepsMHz.empty())
        return nullptr;
    auto bridge = IOReportBridge::shared();
    if (!bridge) return nullptr;
    auto subscription = bridge->makeCPUFrequencySubscription();
    if (!subscription) return nullptr;
    return std::make_shared<CPUClockMonitorEngine>(std::move(bridge), std::move(*subscription),
                                                   layout);
}

CPUClockMonitorEngine::CPUClockMonitorEngine(std::shared_ptr<IOReportBridge> bridge,
                                             IOReportBridge::Subscription subscription,
                                             CoreLayout layout)
    : bridge_(std::move(bridge)),
      subscription_(std::move(subscription)),
      layout_(std::move(layout)) {}

std::optional<ClusterClockSample> CPUClockMonitorEngine::nextSample() {
    IOReport& library = bridge_->library();
    auto sample = library.createSamples(*subscription_.token, *subscription_.channels);
    if (!sample) return std::nullopt;
    std::optional<ClusterClockSample> clocks;
    if (lastSample_) {
        if (const auto delta = library.createSamplesDelta(*lastSample_, *sample)) {
            clocks = bridge_->clusterClockSample(*delta, layout_);
            if (!clocks) logger.debug("IOReport delta contained no CPU clock sample");
        }
    }
    lastSample_ = std::move(sample);
    return clocks;
}

}  // namespace vtx
