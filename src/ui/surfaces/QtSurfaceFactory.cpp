// SPDX-License-Identifier: MIT
#include "ui/surfaces/QtSurfaceFactory.h"

#include <QApplication>

#include "ui/shell/StatusItemFactory.h"
#include "ui/surfaces/AboutPanel.h"
#include "ui/surfaces/DashboardWindowController.h"
#include "ui/surfaces/LanguagePickerWindowController.h"
#include "ui/surfaces/MiniWidgetWindowController.h"
#include "ui/surfaces/PopoverController.h"
#include "ui/surfaces/StatusItemController.h"

namespace vtx {

QtSurfaceFactory::QtSurfaceFactory(WindowSystem& system, UserDefaults& defaults, QString title)
    : system_(system), defaults_(defaults), title_(std::move(title)) {}

QtSurfaceFactory::~QtSurfaceFactory() { delete about_; }

void QtSurfaceFactory::useTray(TrayHost& tray, const Clock& clock) {
    tray_ = &tray;
    clock_ = &clock;
}

std::unique_ptr<LanguagePickerSurface> QtSurfaceFactory::makeLanguagePicker() {
    auto made = std::make_unique<LanguagePickerWindowController>(title_);
    languagePicker_ = made.get();
    return made;
}

std::unique_ptr<DashboardSurface> QtSurfaceFactory::makeDashboard(MetricsCoordinator& coordinator) {
    auto made = std::make_unique<DashboardWindowController>(coordinator, defaults_, title_);
    made->didLetGo = [this] {
        if (onLetGo) onLetGo();
    };
    dashboard_ = made.get();
    return made;
}

std::unique_ptr<MiniWidgetSurface> QtSurfaceFactory::makeMiniWidget(
    MetricsCoordinator& coordinator) {
    auto made = std::make_unique<MiniWidgetWindowController>(system_, coordinator, title_);
    miniWidget_ = made.get();
    return made;
}

std::unique_ptr<StatusItemSurface> QtSurfaceFactory::makeStatusItem(
    MetricsCoordinator& coordinator) {
    auto made = std::make_unique<StatusItemController>(
        system_, vtx::makeStatusItem(system_, defaults_), title_, coordinator);
    statusItem_ = made.get();
    if (tray_) made->joinTray(*tray_, *clock_);
    return made;
}

std::unique_ptr<PopoverSurface> QtSurfaceFactory::makePopover(
    MetricsCoordinator& coordinator, StatusItemSurface& item,
    std::function<void(PopoverSection)> onDetachRequested) {
    // The only status items that reach this are those made above.
    auto& ours = static_cast<StatusItemController&>(item);
    auto made = std::make_unique<PopoverController>(system_, coordinator, ours.item(), title_,
                                                    std::move(onDetachRequested));
    made->didClose = [&ours] { ours.popoverClosed(); };
    made->didLetGo = [this] {
        if (onLetGo) onLetGo();
    };
    popover_ = made.get();
    return made;
}

void QtSurfaceFactory::becomeAccessory() { QApplication::setQuitOnLastWindowClosed(false); }

void QtSurfaceFactory::activate() {
    // The window that opens next asks for the keyboard itself; there is nothing before that.
}

void QtSurfaceFactory::showAboutPanel() {
    if (!about_) about_ = new AboutPanel(title_);
    about_->show();
    about_->raise();
    about_->activateWindow();
}

QWidget* QtSurfaceFactory::aboutPanel() const { return about_; }

void QtSurfaceFactory::terminate() { QCoreApplication::quit(); }

}  // namespace vtx
