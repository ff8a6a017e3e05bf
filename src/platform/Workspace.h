// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

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

    /// The process of the application in front; absent where there is none, or none that the
    /// platform tells of.
    [[nodiscard]] virtual std::optional<std::int32_t> frontmostApplication() = 0;

    /// Shows a file in the file viewer, selected. Nobody is told how that went.
    virtual void selectFile(const std::string& path) = 0;

    /// Whether there is a system monitor to open.
    [[nodiscard]] virtual bool hasSystemMonitor() = 0;
    /// Opens the system's own monitor. Nobody is told how that went.
    virtual void openSystemMonitor() = 0;
};

}  // namespace vtx
