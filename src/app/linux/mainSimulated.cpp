// SPDX-License-Identifier: MIT
// The very same application on a Mac that exists in memory only.
#include <QApplication>

#include "app/CommandLine.h"
#include "app/linux/LinuxDesktop.h"
#include "app/linux/SingleStart.h"
#include "base/SerialExecutor.h"
#include "base/Version.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/SessionInstance.h"
#include "platform/linux/TerminationSignals.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "ui/shell/QtMainExecutor.h"
#include "ui/shell/linux/QtRunLoop.h"

int main(int argc, char** argv) {
    vtx::LaunchOptions options;
    options.title = "Vantrix (simulated Mac)";
    if (const auto done = vtx::readCommandLine(argc, argv, options)) return *done;
    vtx::SessionInstance instance("com.vantrix.app.simulated", vtx::sessionBusAddress());
    if (const auto done = vtx::handOverToFirst(instance, options)) return *done;

    vtx::LinuxDesktop::settleToolkit();
    vtx::TerminationSignals::block();
    QApplication application(argc, argv);
    QApplication::setApplicationName("vantrix-simulated");
    QApplication::setApplicationDisplayName(options.title);
    QApplication::setApplicationVersion(vtx::programVersion().data());

    vtx::QtMainExecutor mainExecutor;
    vtx::QtRunLoop runLoop;
    vtx::LinuxDesktop desktop(runLoop, mainExecutor);
    vtx::LinuxClock clock(runLoop);
    vtx::SimulatedPlatform platform(clock, vtx::MacShape::laptop());
    platform.mac.live(1);
    platform.unifiedLog.setLowestLevel(vtx::LogLevel::standard);
    platform.unifiedLog.setEcho(true);
    vtx::SerialExecutor tick(vtx::LinuxPlatform::nameThread("vantrix-tick"));
    vtx::SerialExecutor blocking(vtx::LinuxPlatform::nameThread("vantrix-table"));
    const vtx::TerminationSignals signals(runLoop, [] { QApplication::quit(); });
    vtx::VantrixApp vantrix(platform.ports(), {mainExecutor, tick, blocking}, std::move(options),
                            desktop.tray());
    instance.listen(runLoop, mainExecutor, [&vantrix] { vantrix.showPopover(); });
    return vantrix.run();
}
