// SPDX-License-Identifier: MIT
#pragma once

#include "base/Executor.h"
#include "base/Signal.h"
#include "platform/Workspace.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/SystemBus.h"

namespace vtx {

/// The session by the login manager (org.freedesktop.login1). From the first handler that wants to
/// know before the machine sleeps, a delay inhibitor is held; it is given back once the handlers
/// and what they posted to the main executor have run, and taken again after the machine woke.
/// Without a login manager nothing is ever told. Main executor; owned by the platform.
class LinuxWorkspace final : public Workspace {
public:
    /// Asks the display which process has the window in front. Absent where that is not told.
    using FrontmostProcess = std::function<std::optional<std::int32_t>()>;

    /// Empty for a desktop whose display tells no program what is in front.
    LinuxWorkspace(SystemBus& bus, Executor& main, FrontmostProcess frontmost = {});

    [[nodiscard]] Subscription onWillSleep(std::function<void()> handler) override;
    [[nodiscard]] Subscription onDidWake(std::function<void()> handler) override;

    [[nodiscard]] std::optional<std::int32_t> frontmostApplication() override;

    /// Whether the machine's sleep waits for this process.
    [[nodiscard]] bool holdsInhibitor() const { return static_cast<bool>(inhibitor_); }

private:
    void listen();
    void prepareForSleep(bool isStarting);
    void takeInhibitor();
    void releaseInhibitor();

    SystemBus& bus_;
    Executor& main_;
    const FrontmostProcess frontmost_;
    Signal<> willSleep_;
    Signal<> didWake_;
    bool isListening_ = false;
    bool isAsleep_ = false;
    FileDescriptor inhibitor_;
    Subscription inhibitCall_;
    Subscription sleepSignal_;
    std::shared_ptr<LinuxWorkspace*> self_;  ///< what jobs under way hold weakly
};

}  // namespace vtx
