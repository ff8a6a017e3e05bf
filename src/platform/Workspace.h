// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "base/Subscription.h"

namespace vtx {

/// The user's session. Main executor.
class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    /// Tells before the machine goes to sleep, which waits for a short time for the handlers.
    [[nodiscard]] virtual Subscription onWillSleep(std::function<void()> handler) = 0;

    /// Tells after the machine woke.
    [[nodiscard]] virtual Subscription onDidWake(std::function<void()> handler) = 0;
};

}  // namespace vtx
