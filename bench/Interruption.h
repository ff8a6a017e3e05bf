// SPDX-License-Identifier: MIT
#pragma once

#include <signal.h>

#include <chrono>

namespace vtx::bench {

/// Turns the signals that ask for an end into an exception, thrown where the measuring waits, so
/// that everything that was started is ended in order. To be made before any thread.
class Interruption {
public:
    Interruption();

    /// Throws `std::runtime_error` when one of the signals comes or has come.
    void sleepFor(std::chrono::nanoseconds time) const;

private:
    sigset_t signals_{};
};

}  // namespace vtx::bench
