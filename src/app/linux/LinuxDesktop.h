// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/Executor.h"
#include "platform/linux/RunLoop.h"

namespace vtx {

class SystemBus;
class TrayHost;

/// What both programs share around the application object on Linux: the toolkit's settings before
/// it, and after it the desktop's light or dark appearance, its tray and the application's icon.
class LinuxDesktop {
public:
    /// Settles, before the application object is made, what the toolkit takes from the environment,
    /// so that the resident program stays small. What the user has set stays as it is.
    static void settleToolkit();

    /// After the application object was made. The loop and the executor must outlive the object.
    LinuxDesktop(RunLoop& loop, Executor& main);
    ~LinuxDesktop();
    LinuxDesktop(const LinuxDesktop&) = delete;
    LinuxDesktop& operator=(const LinuxDesktop&) = delete;

    /// The bus of the user's session.
    [[nodiscard]] SystemBus& session();
    /// The tray, which may come and go. Lives as long as the object.
    [[nodiscard]] TrayHost* tray();

private:
    struct Members;
    std::unique_ptr<Members> members_;
};

}  // namespace vtx
