// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/IOReportLibrary.h"
#include "telemetry/ClusterClockSample.h"
#include "telemetry/CoreLayout.h"

namespace vtx {

class Clock;

/// Turns the private library's residencies into clocks. Loaded once; does not change after that and
/// keeps nothing of what it is asked, so any thread may ask.
class IOReportBridge {
public:
    /// What samples are taken of.
    struct Subscription {
        std::unique_ptr<IOReportSubscriptionObject> token;
        IOReportDictionaryOwner channels;
    };

    /// One state of one channel.
    struct Residency {
        std::string_view name;  ///< valid as long as the channel; empty where it has none
        std::int64_t value = 0;
    };

    /// Null, and logged, where the library or one of its symbols is missing. The clock outlives the
    /// bridge.
    static std::shared_ptr<IOReportBridge> load(IOReportLibrary& library, const Clock& clock);

    /// The process's one, loaded on first use; null for good where that failed. Main executor.
    static std::shared_ptr<IOReportBridge> shared();

    IOReportBridge(std::unique_ptr<IOReport> library, const Clock& clock);

    /// The library's functions.
    [[nodiscard]] IOReport& library() const { return *library_; }

    /// Absent where the machine counts no performance states of its cores.
    [[nodiscard]] std::optional<Subscription> makeCPUFrequencySubscription() const;

    /// The clocks by what a difference of two samples holds; absent if it holds none.
    [[nodiscard]] std::optional<ClusterClockSample> clusterClockSample(
        const IOReportDictionary& delta, const CoreLayout& layout) const;

    /// The mean clock of a channel while it ran, which its idle time does not lower. Absent where
    /// it never ran.
    [[nodiscard]] std::optional<double> averageFrequency(IOReportChannel channel,
                                                         std::span<const double> stepsMHz) const;

    /// All states of a channel in its order.
    [[nodiscard]] std::vector<Residency> stateResidencies(IOReportChannel channel) const;

private:
    [[nodiscard]] bool isCoreChannel(IOReportChannel channel) const;

    std::unique_ptr<IOReport> library_;
    const Clock& clock_;
};

/// What `IOReportBridge::shared` keeps, a failure to load included.
struct SharedIOReportBridge {
    std::shared_ptr<IOReportBridge> bridge;
};

}  // namespace vtx
