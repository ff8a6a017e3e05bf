// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "base/Executors.h"
#include "platform/Ports.h"
#include "platform/ProcessInfo.h"
#include "ui/controller/MenuBarController.h"

namespace vtx {

/// What the application does when it has launched and before it ends. Lives on the main executor
/// for the whole run, owned by the composition root.
class AppDelegate {
public:
    /// All that is passed must outlive the delegate.
    AppDelegate(const Ports& ports, const Executors& executors, SurfaceFactory& surfaces);

    /// Makes the application an accessory, takes a process activity and creates the controller,
    /// with which everything starts.
    void applicationDidFinishLaunching();
    /// Ends the activity, if there is one.
    void applicationWillTerminate();

    /// Null until the launch has finished.
    [[nodiscard]] MenuBarController* menuBarController() { return menuBarController_.get(); }

private:
    const Ports ports_;
    const Executors executors_;
    SurfaceFactory& surfaces_;
    std::unique_ptr<MenuBarController> menuBarController_;
    std::optional<ActivityToken> activity_;
};

}  // namespace vtx
