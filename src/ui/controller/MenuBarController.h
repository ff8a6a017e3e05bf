// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "base/TaskScope.h"
#include "core/MetricsCoordinator.h"
#include "ui/controller/SurfaceFactory.h"

namespace vtx {

/// Owns the status item and all that hangs from it, the coordinator included. Turns what the user
/// and the platform do into polling modes, and fits the item to the strip. Lives on the main
/// executor, made once by the application's delegate, for the life of the process.
class MenuBarController {
public:
    /// Makes every service, the coordinator and the surfaces, and starts the loop. All that is
    /// passed must outlive the controller.
    MenuBarController(const Ports& ports, const Executors& executors, SurfaceFactory& surfaces);
    ~MenuBarController();
    MenuBarController(const MenuBarController&) = delete;
    MenuBarController& operator=(const MenuBarController&) = delete;

    [[nodiscard]] MetricsCoordinator& coordinator() { return coordinator_; }

    // What the status item and its menu do.
    void handleStatusItemClick(ButtonEvent event);
    void showAbout();
    void openSettings();
    void openDashboardWindow();
    void refreshNow();
    void toggleMiniWidget();
    void quit();

    /// Opens the popover, or closes it if it is shown.
    void togglePopover();
    /// Opens the popover, or brings it to the front.
    void showPopover();

private:
    void configureStatusItem();
    void observePreferences();
    void observePopover();
    void observePowerSource();
    void presentLanguagePickerIfNeeded();
    void completeFirstRun(Language chosen);
    void updateMiniWidgetVisibility(bool enabled);
    Task<> refreshEverything();
    void observeStripSizeSignals();
    void recalculateStripSize();
    void dashboardVisibilityChanged(bool visible);
    void detach(PopoverSection section);
    void showContextMenu();
    void closePopoverIfShown();
    void chooseMode(bool isSurfaceOpen);

    const Ports ports_;
    Executor& main_;
    SurfaceFactory& surfaces_;
    std::unique_ptr<LanguagePickerSurface> languagePickerWindow_;
    MetricsCoordinator coordinator_;
    std::unique_ptr<DashboardSurface> dashboardWindow_;
    std::unique_ptr<MiniWidgetSurface> miniWidgetWindow_;
    std::unique_ptr<StatusItemSurface> statusItem_;
    std::unique_ptr<PopoverSurface> popover_;
    /// A width that waits for the popover to close; logical pixels.
    std::optional<double> deferredStripWidth_;
    bool isDashboardVisible_ = false;
    Subscription preferences_;
    Subscription stripSize_;
    Subscription powerObserver_;
    TaskScope tasks_;  // last: its frames use all of the above
};

}  // namespace vtx
