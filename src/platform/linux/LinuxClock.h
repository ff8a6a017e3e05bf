// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/Clock.h"
#include "platform/linux/RunLoop.h"

namespace vtx {

/// Time of the kernel: CLOCK_REALTIME, and CLOCK_BOOTTIME, which counts sleep. All timers share one
/// timer descriptor, armed for the one moment that serves most of them, and only set anew when that
/// moment moves. Lives on the main executor; owned by the platform; its tokens may outlive it.
class LinuxClock final : public Clock {
public:
    /// Throws `std::system_error` when the system has no descriptor left.
    explicit LinuxClock(RunLoop& loop);
    ~LinuxClock() override;

    [[nodiscard]] Date now() const override;
    [[nodiscard]] Instant continuous() const override;
    /// The same, for those that may outlive the clock. Any thread.
    [[nodiscard]] static Instant bootTime();
    [[nodiscard]] Subscription schedule(Instant deadline, Duration tolerance, Job job) override;

private:
    struct Core;
    std::shared_ptr<Core> core_;
    Subscription watch_;
};

}  // namespace vtx
