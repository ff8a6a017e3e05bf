// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "base/Subscription.h"

namespace vtx {

/// The loop of the main executor, as far as this platform needs it: something to hang file
/// descriptors on. The application implements it with the notifier of its toolkit. Main executor;
/// outlives every token it gave.
class RunLoop {
public:
    RunLoop() = default;
    RunLoop(const RunLoop&) = delete;
    RunLoop& operator=(const RunLoop&) = delete;
    virtual ~RunLoop() = default;

    /// Calls `ready` from the loop, never inside this call, as long as the descriptor is in one of
    /// the states of `pollEvents` (POLLIN, POLLOUT, POLLPRI) or has failed. The descriptor must
    /// stay open until the token has gone; `ready` may drop tokens, its own included, and watch
    /// others.
    [[nodiscard]] virtual Subscription watch(int fd, short pollEvents,
                                             std::function<void()> ready) = 0;
};

}  // namespace vtx
