// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "base/Log.h"
#include "core/UpdaterService.h"

namespace vtx {
namespace {

/// User-initiated work that still lets the machine sleep when idle.
constexpr std::uint64_t activityOptions = 0x00EFFFFF;

}  // namespace

AppDelegate::AppDelegate(const Ports& ports, const Executors& executors, SurfaceFactory& surfaces)
    : ports_(ports), executors_(executors), surfaces_(surfaces) {}

void AppDelegate::applicationDidFinishLaunching() {
    surfaces_.becomeAccessory();
    AppLog::app.info("Vantrix launching (Apple Silicon, macOS {})",
                     ports_.processInfo.operatingSystemVersionString());
    activity_ = ports_.processInfo.beginActivity(activityOptions, "Live Menu Bar Updates");
    menuBarController_ = std::make_unique<MenuBarController>(ports_, executors_, surfaces_);
    // With its first use the updater begins.
    UpdaterService::shared();
}

void AppDelegate::applicationWillTerminate() {
    if (activity_) ports_.processInfo.endActivity(*activity_);
    activity_.reset();
    AppLog::app.info("Vantrix terminating");
}

}  // namespace vtx
