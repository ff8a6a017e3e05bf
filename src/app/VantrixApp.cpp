// SPDX-License-Identifier: MIT
#include "app/VantrixApp.h"

#include <QApplication>

#include "app/AppDelegate.h"
#include "app/PictureTour.h"
#include "base/Shared.h"
#include "core/UpdaterService.h"
#include "fan/SharedFans.h"
#include "language/Localization.h"
#include "platform/UnifiedLog.h"
#include "smc/SharedSensors.h"
#include "telemetry/SharedTelemetry.h"
#include "ui/shell/NativeWindowSystem.h"
#include "ui/shell/WindowSystem.h"
#include "ui/surfaces/QtSurfaceFactory.h"

namespace vtx {
namespace {

/// The process-wide objects, for as long as the application runs.
class SharedObjects {
public:
    SharedObjects(const Ports& ports, PlatformWording wording)
        : previous_(AppLog::install(&ports.unifiedLog)),
          telemetry_(ports),
          sensors_(ports),
          fans_(ports) {
        Shared<Localization>::setFactory([&locale = ports.locale, wording] {
            return std::make_unique<Localization>(locale, wording);
        });
        Shared<UpdaterService>::setFactory([&updater = ports.softwareUpdater] {
            return std::make_unique<UpdaterService>(updater);
        });
    }
    ~SharedObjects() {
        Shared<UpdaterService>::reset();
        Shared<Localization>::reset();
        AppLog::install(previous_);
    }
    SharedObjects(const SharedObjects&) = delete;
    SharedObjects& operator=(const SharedObjects&) = delete;

private:
    LogSink* previous_;
    SharedTelemetry telemetry_;
    SharedSensors sensors_;
    SharedFans fans_;
};

}  // namespace

struct VantrixApp::Parts {
    Parts(const Ports& ports, const Executors& executors, LaunchOptions launch, TrayHost* tray)
        : options(std::move(launch)),
          shared(ports, options.wording),
          windowSystem(nativeWindowSystem()),
          surfaces(*windowSystem, ports.userDefaults, options.title),
          delegate(ports, executors, surfaces) {
        surfaces.onLetGo = options.giveHeapBack;
        if (tray) surfaces.useTray(*tray, ports.clock);
        if (!options.picturesFolder.isEmpty())
            tour = std::make_unique<PictureTour>(options.picturesFolder, ports.clock,
                                                 executors.main, surfaces);
    }

    const LaunchOptions options;
    SharedObjects shared;
    std::unique_ptr<WindowSystem> windowSystem;
    QtSurfaceFactory surfaces;
    AppDelegate delegate;
    std::unique_ptr<PictureTour> tour;
};

VantrixApp::VantrixApp(const Ports& ports, const Executors& executors, LaunchOptions options,
                       TrayHost* tray)
    : parts_(std::make_unique<Parts>(ports, executors, std::move(options), tray)) {}

VantrixApp::~VantrixApp() = default;

void VantrixApp::showPopover() {
    if (MenuBarController* controller = parts_->delegate.menuBarController())
        controller->showPopover();
}

int VantrixApp::run() {
    parts_->delegate.applicationDidFinishLaunching();
    if (parts_->tour) parts_->tour->start(*parts_->delegate.menuBarController());
    const int code = QApplication::exec();
    parts_->delegate.applicationWillTerminate();
    return code;
}

}  // namespace vtx
