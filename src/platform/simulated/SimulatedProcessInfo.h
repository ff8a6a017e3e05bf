// SPDX-License-Identifier: MIT
#pragma once

#include <map>

#include "platform/ProcessInfo.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedMac.h"

namespace vtx {

/// This process as the simulated machine sees it. Main executor.
class SimulatedProcessInfo final : public ProcessInfo {
public:
    /// An activity that was begun and has not been ended.
    struct Activity {
        std::uint64_t options;
        std::string reason;
        friend bool operator==(const Activity&, const Activity&) = default;
    };

    SimulatedProcessInfo(SimulatedMac& mac, Instruments& instruments)
        : mac_(mac), instruments_(instruments) {}

    [[nodiscard]] std::string operatingSystemVersionString() const override;
    [[nodiscard]] std::optional<std::string> environment(std::string_view name) const override;
    [[nodiscard]] std::vector<std::string> loadedBundlePaths() const override;
    [[nodiscard]] bool isLowPowerModeEnabled() const override;
    [[nodiscard]] Subscription onPowerStateDidChange(std::function<void()> handler) override;
    [[nodiscard]] ActivityToken beginActivity(std::uint64_t options,
                                              std::string_view reason) override;
    /// A token that names no activity that goes on is a programming fault, 0 is ignored.
    void endActivity(ActivityToken token) override;

    /// In the order in which they were begun.
    [[nodiscard]] std::vector<Activity> activities() const;

private:
    SimulatedMac& mac_;
    Instruments& instruments_;
    std::map<ActivityToken, Activity> activities_;
    ActivityToken last_ = 0;
};

}  // namespace vtx
