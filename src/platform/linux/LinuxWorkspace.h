// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "base/Executor.h"
#include "base/Signal.h"
#include "platform/Workspace.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/SystemBus.h"
#include "platform/linux/SystemMonitor.h"

namespace vtx {

/// The session by the login manager (org.freedesktop.login1). From the first handler that wants to
/// know before the machine sleeps, a delay inhibitor is held; it is given back once the handlers
/// and what they posted to the main executor have run, and taken again after the machine woke.
/// Without a login manager nothing is ever told. Main executor; owned by the platform.
class LinuxWorkspace final : public Workspace {
public:
    /// Asks the display which process has the window in front. Absent where that is not told.
    using FrontmostProcess = std::function<std::optional<std::int32_t>()>;

    /// What the user's desktop does for it. Each may be missing.
    struct Desktop {
        FrontmostProcess frontmost = {};
        /// The session's bus, which outlives this.
        SystemBus* session = nullptr;
        std::optional<SystemMonitor> monitor = std::nullopt;
        /// Opens a folder in whatever shows folders.
        std::function<void(const std::string& path)> openFolder = {};
    };

    LinuxWorkspace(SystemBus& bus, Executor& main, Desktop desktop);
    /// Without a desktop.
    LinuxWorkspace(SystemBus& bus, Executor& main);

    [[nodiscard]] Subscription onWillSleep(std::function<void()> handler) override;
    [[nodiscard]] Subscription onDidWake(std::function<void()> handler) override;

    [[nodiscard]] std::optional<std::int32_t> frontmostApplication() override;
    /// By the desktop's file manager, which the session starts if need be. Where there is none that
    /// shows files, which is logged, the folder is opened.
    void selectFile(const std::string& path) override;
    [[nodiscard]] bool hasSystemMonitor() override;
    void openSystemMonitor() override;

    /// Whether the machine's sleep waits for this process.
    [[nodiscard]] bool holdsInhibitor() const { return static_cast<bool>(inhibitor_); }

private:
    void showFolderOf(const std::string& file, std::string_view why);
    void listen();
    void prepareForSleep(bool isStarting);
    void takeInhibitor();
    void releaseInhibitor();

    SystemBus& bus_;
    Executor& main_;
    Desktop desktop_;
    Subscription fileManager_;  ///< the call under way
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
