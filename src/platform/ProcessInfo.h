// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Subscription.h"

namespace vtx {

/// Names an activity that was begun; 0 names none.
using ActivityToken = std::uint64_t;

/// This process and the settings of the system that concern it. Main executor.
class ProcessInfo {
public:
    ProcessInfo() = default;
    ProcessInfo(const ProcessInfo&) = delete;
    ProcessInfo& operator=(const ProcessInfo&) = delete;
    virtual ~ProcessInfo() = default;

    /// The operating system's name and version as its users know it.
    [[nodiscard]] virtual std::string operatingSystemVersionString() const = 0;

    [[nodiscard]] virtual std::optional<std::string> environment(std::string_view name) const = 0;

    /// Paths of the loaded bundles; empty where the platform has no such thing.
    [[nodiscard]] virtual std::vector<std::string> loadedBundlePaths() const = 0;

    /// False where the system knows no such mode.
    [[nodiscard]] virtual bool isLowPowerModeEnabled() const = 0;

    /// Tells after the low power mode was switched.
    [[nodiscard]] virtual Subscription onPowerStateDidChange(std::function<void()> handler) = 0;

    /// Tells the system that the process works for its user, until `endActivity`. The options are
    /// the platform's bits.
    [[nodiscard]] virtual ActivityToken beginActivity(std::uint64_t options,
                                                      std::string_view reason) = 0;
    virtual void endActivity(ActivityToken token) = 0;
};

}  // namespace vtx
