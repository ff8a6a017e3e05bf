// SPDX-License-Identifier: MIT
#pragma once

#include <set>

#include "platform/ProcessInfo.h"
#include "platform/linux/Environment.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/PowerProfiles.h"

namespace vtx {

/// This process on Linux: the system's name by /etc/os-release, the environment, no bundles, and
/// the low power mode as the "power-saver" profile. Main executor; owned by the platform.
class LinuxProcessInfo final : public ProcessInfo {
public:
    LinuxProcessInfo(const LinuxRoot& root, Environment environment, SystemBus& bus);

    [[nodiscard]] std::string operatingSystemVersionString() const override { return version_; }
    [[nodiscard]] std::optional<std::string> environment(std::string_view name) const override;
    [[nodiscard]] std::vector<std::string> loadedBundlePaths() const override { return {}; }
    [[nodiscard]] bool isLowPowerModeEnabled() const override { return profiles_.isPowerSaver(); }
    [[nodiscard]] Subscription onPowerStateDidChange(std::function<void()> handler) override;

    /// Hands out a token and counts: this system knows no activity that asks for timely service
    /// and still lets the machine sleep when it is idle.
    [[nodiscard]] ActivityToken beginActivity(std::uint64_t options,
                                              std::string_view reason) override;
    void endActivity(ActivityToken token) override { activities_.erase(token); }

    /// Activities that were begun and not ended.
    [[nodiscard]] std::size_t activityCount() const { return activities_.size(); }

    /// PRETTY_NAME of an os-release file, unquoted; absent when it is not there or empty.
    [[nodiscard]] static std::optional<std::string> prettyName(std::string_view osRelease);

private:
    std::string version_;
    Environment environment_;
    mutable PowerProfiles profiles_;  ///< listens from the first question on
    std::set<ActivityToken> activities_;
    ActivityToken lastToken_ = 0;
};

}  // namespace vtx
