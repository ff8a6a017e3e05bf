// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/MetricsCoordinator.h"

namespace vtx {

class Clock;
struct NotificationRequest;

/// Looks at when a coordinator does what it does, by the time that never jumps: passes come as
/// often as its mode asks, no more and no less, so do walks through the processes, and an alert
/// comes when its load has lasted, and no oftener than it can last anew. The coordinator and the
/// clock must outlive it.
class PaceWatch {
public:
    PaceWatch(MetricsCoordinator& coordinator, const Clock& clock);
    PaceWatch(const PaceWatch&) = delete;
    PaceWatch& operator=(const PaceWatch&) = delete;

    /// From here on nothing happens but that time passes.
    void begin();
    /// Looks at the time since, and at what was told in it. Where a notification was refused an
    /// alert may be missing.
    void look(std::span<const NotificationRequest> posted, bool isOneRefused);
    /// The first that was not as it may be, in words.
    [[nodiscard]] const std::optional<std::string>& complaint() const { return complaint_; }

private:
    /// What happens time and again.
    struct Beat {
        std::size_t count = 0;  ///< since `begin`
        Instant last;           ///< `begin`, as long as there is none
    };
    /// A load that the user is told of.
    struct Load {
        std::string_view identifier;
        Duration persistence;
        std::optional<Instant> highSince;  ///< absent while it is below its threshold
        bool isTold = false;               ///< since it was below
    };

    void note(Load& load, bool isHigh);
    /// At most every `shortest`, and at least every `longest`.
    void demandPace(std::string_view name, const Beat& beat, Duration shortest, Duration longest);
    void lookAt(Load& load, std::span<const NotificationRequest> posted, bool isOneRefused);
    void demand(bool holds, std::string_view what);

    MetricsCoordinator& coordinator_;
    const Clock& clock_;
    Instant begun_;
    Beat passes_, walks_;
    Load cpu_{"vantrix.alert.cpu", std::chrono::seconds(10), {}, false};
    Load gpu_{"vantrix.alert.gpu", std::chrono::seconds(10), {}, false};
    Load memory_{"vantrix.alert.memory", std::chrono::seconds(30), {}, false};
    Load temperature_{"vantrix.alert.temperature", std::chrono::seconds(10), {}, false};
    std::optional<std::string> complaint_;
    Subscriptions subscriptions_;
};

}  // namespace vtx
