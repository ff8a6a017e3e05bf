// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "base/Executors.h"
#include "language/PlatformWording.h"
#include "platform/Ports.h"

class QApplication;

namespace vtx {

class TrayHost;

/// What the program was asked to do when it was started.
struct LaunchOptions {
    /// Stands in every window's title.
    QString title = "Vantrix";
    /// Where to put a picture of every surface, after which the program ends; empty to stay.
    QString picturesFolder;
    /// The platform's own words, laid over the catalogue; null where it has none.
    PlatformWording wording = nullptr;
    /// Gives the unused heap back to the system: called when a surface is gone. May be empty.
    std::function<void()> giveHeapBack;
};

/// The running application on a platform that was picked for it: makes the process-wide objects,
/// the surfaces and the delegate, and runs the event loop. The one place that knows all parts.
class VantrixApp {
public:
    /// All that is passed must outlive the object. Without a tray the strip serves alone.
    VantrixApp(const Ports& ports, const Executors& executors, LaunchOptions options,
               TrayHost* tray = nullptr);
    ~VantrixApp();
    VantrixApp(const VantrixApp&) = delete;
    VantrixApp& operator=(const VantrixApp&) = delete;

    /// Runs until the application ends; the process's exit code.
    int run();

    /// Opens the popover, or brings it to the front; nothing before the application runs.
    void showPopover();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace vtx
