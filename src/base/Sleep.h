// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Clock.h"
#include "base/Task.h"

namespace vtx {

enum class SleepEnd { elapsed, cancelled };

/// What `Clock::sleepUntil` gives to `co_await`. A stop that was asked for before, or is asked for
/// meanwhile, ends the sleep at once with `cancelled`. The stop must come from the clock's thread.
class SleepAwaiter {
public:
    SleepAwaiter(Clock& clock, Instant deadline, Duration tolerance, std::stop_token stop)
        : clock_(clock), deadline_(deadline), tolerance_(tolerance), stop_(std::move(stop)) {}

    bool await_ready() const { return stop_.stop_requested(); }

    template <class Promise>
    void await_suspend(std::coroutine_handle<Promise> handle) {
        auto state = std::make_shared<Suspension>();
        point_.arm(handle, state);
        timer_ = clock_.schedule(deadline_, tolerance_, [state] { resumeNow(state); });
        onStop_.emplace(stop_, Wake{state});
    }

    SleepEnd await_resume() const {
        return stop_.stop_requested() ? SleepEnd::cancelled : SleepEnd::elapsed;
    }

private:
    struct Wake {
        std::shared_ptr<Suspension> state;
        void operator()() const { resumeLater(state); }
    };

    Clock& clock_;
    Instant deadline_;
    Duration tolerance_;
    std::stop_token stop_;
    ResumePoint point_;
    Subscription timer_;
    std::optional<std::stop_callback<Wake>> onStop_;
};

inline SleepAwaiter Clock::sleepUntil(Instant deadline, Duration tolerance, std::stop_token stop) {
    return {*this, deadline, tolerance, std::move(stop)};
}

}  // namespace vtx
