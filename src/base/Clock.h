// SPDX-License-Identifier: MIT
#pragma once

#include <stop_token>

#include "base/Date.h"
#include "base/Subscription.h"

namespace vtx {

class SleepAwaiter;

/// The one source of time and of timers. Lives on the main executor.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    /// Wall time. Any thread.
    [[nodiscard]] virtual Date now() const = 0;

    /// Time that also runs while the machine sleeps and never jumps. Any thread.
    [[nodiscard]] virtual Instant continuous() const = 0;

    /// Runs `job` on the main executor once, no earlier than `deadline` and, as far as the clock
    /// can choose, no later than `deadline + tolerance`, together with other timers where it can.
    /// Dropping the token cancels. Main executor.
    [[nodiscard]] virtual Subscription schedule(Instant deadline, Duration tolerance, Job job) = 0;

    /// `co_await`s until the deadline as above, or until a stop is asked for. Include
    /// "base/Sleep.h" to use it.
    SleepAwaiter sleepUntil(Instant deadline, Duration tolerance, std::stop_token stop);
};

}  // namespace vtx
