// SPDX-License-Identifier: MIT
// Vantrix on this machine.
#include <QApplication>

#include "app/CommandLine.h"
#include "app/linux/LinuxDesktop.h"
#include "app/linux/SingleStart.h"
#include "base/SerialExecutor.h"
#include "base/Version.h"
#include "language/linux/LinuxWording.h"
#include "platform/linux/DescriptorLimit.h"
#include "platform/linux/LinuxHeapRelief.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/SessionInstance.h"
#include "platform/linux/TerminationSignals.h"
#include "ui/shell/QtMainExecutor.h"
#include "ui/shell/linux/QtRunLoop.h"
#include "ui/shell/linux/X11FrontmostProcess.h"

int main(int argc, char** argv) {
    vtx::LaunchOptions options;
    options.wording = vtx::linuxWording;
    options.giveHeapBack = vtx::LinuxHeapRelief::trim;
    if (const auto done = vtx::readCommandLine(argc, argv, options)) return *done;
    vtx::SessionInstance instance("com.vantrix.app", vtx::sessionBusAddress());
    if (const auto done = vtx::handOverToFirst(instance, options)) return *done;

    vtx::LinuxDesktop::settleToolkit();
    // Before the first thread.
    vtx::LinuxHeapRelief::shareHeaps();
    vtx::TerminationSignals::block();
    vtx::raiseDescriptorLimit();
    QApplication application(argc, argv);
    QApplication::setApplicationName("vantrix");
    QApplication::setApplicationDisplayName("Vantrix");
    QApplication::setApplicationVersion(vtx::programVersion().data());

    vtx::QtMainExecutor mainExecutor;
    vtx::QtRunLoop runLoop;
    vtx::LinuxDesktop desktop(runLoop, mainExecutor);
    vtx::LinuxPlatform::Options machine;
    machine.frontmostProcess = vtx::x11FrontmostProcess();
    machine.session = &desktop.session();
    vtx::LinuxPlatform platform(runLoop, mainExecutor, machine);
    vtx::SerialExecutor tick(vtx::LinuxPlatform::nameThread("vantrix-tick"));
    vtx::SerialExecutor blocking(vtx::LinuxPlatform::nameThread("vantrix-table"));
    const vtx::TerminationSignals signals(runLoop, [] { QApplication::quit(); });
    vtx::VantrixApp vantrix(platform.ports(), {mainExecutor, tick, blocking}, std::move(options),
                            desktop.tray());
    instance.listen(runLoop, mainExecutor, [&vantrix] { vantrix.showPopover(); });
    return vantrix.run();
}
