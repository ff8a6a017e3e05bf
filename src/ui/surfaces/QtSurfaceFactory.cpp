// SPDX-License-Identifier: MIT
#include "ui/surfaces/QtSurfaceFactory.h"

#include <QApplication>
#include <QPixmapCache>
#include <algorithm>
#include <chrono>

#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"
#include "ui/shell/StatusItemFactory.h"
#include "ui/shell/WindowSystem.h"
#include "ui/surfaces/AboutPanel.h"
#include "ui/surfaces/DashboardWindowController.h"
#include "ui/surfaces/LanguagePickerWindowController.h"
#include "ui/surfaces/MiniWidgetWindowController.h"
#include "ui/surfaces/PopoverController.h"
#include "ui/surfaces/StatusItemController.h"
#include "ui/surfaces/StripView.h"

namespace vtx {
namespace {

/// Whoever closed a surface may open it again.
constexpr std::chrono::seconds grace{5};

}  // namespace

QtSurfaceFactory::QtSurfaceFactory(WindowSystem& system, UserDefaults& defaults, QString title)
    : system_(system), defaults_(defaults), title_(std::move(title)) {
    rest_.setSingleShot(true);
    rest_.setTimerType(Qt::PreciseTimer);
    keepFor(grace);
    QObject::connect(&rest_, &QTimer::timeout, [this] { letGo(); });
}

QtSurfaceFactory::~QtSurfaceFactory() { delete about_; }

void QtSurfaceFactory::useTray(TrayHost& tray, const Clock& clock) {
    tray_ = &tray;
    clock_ = &clock;
}

std::unique_ptr<LanguagePickerSurface> QtSurfaceFactory::makeLanguagePicker() {
    auto made = std::make_unique<LanguagePickerWindowController>(title_);
    made->didClose = [this] { rest_.start(); };
    languagePicker_ = made.get();
    return made;
}

std::unique_ptr<DashboardSurface> QtSurfaceFactory::makeDashboard(MetricsCoordinator& coordinator) {
    auto made =
        std::make_unique<DashboardWindowController>(system_, coordinator, defaults_, title_);
    made->didLetGo = [this] { rest_.start(); };
    dashboard_ = made.get();
    return made;
}

std::unique_ptr<MiniWidgetSurface> QtSurfaceFactory::makeMiniWidget(
    MetricsCoordinator& coordinator) {
    auto made = std::make_unique<MiniWidgetWindowController>(system_, coordinator, title_);
    made->didLetGo = [this] { rest_.start(); };
    miniWidget_ = made.get();
    return made;
}

std::unique_ptr<StatusItemSurface> QtSurfaceFactory::makeStatusItem(
    MetricsCoordinator& coordinator) {
    auto made = std::make_unique<StatusItemController>(
        system_, vtx::makeStatusItem(system_, defaults_), title_, coordinator);
    made->menuDidLetGo = [this] { rest_.start(); };
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
    made->didShow = [this] { rest_.stop(); };
    made->didClose = [this, &ours] {
        ours.popoverClosed();
        rest_.start();
    };
    made->didLetGo = [this] {
        if (!rest_.isActive()) letGo();
    };
    popover_ = made.get();
    return made;
}

bool QtSurfaceFactory::isAnythingOpen() const {
    const QWidget* const strip = statusItem_ ? statusItem_->strip().window() : nullptr;
    const QWidget* const widget = miniWidget_ ? miniWidget_->window() : nullptr;
    return std::ranges::any_of(QApplication::topLevelWidgets(), [&](const QWidget* window) {
        return window->isVisible() && window != strip && window != widget;
    });
}

void QtSurfaceFactory::letGo() {
    if (!isAnythingOpen()) {
        symbols::releaseCache();
        releaseFonts();
        QPixmapCache::clear();
    }
    if (onLetGo) onLetGo();
}

void QtSurfaceFactory::becomeAccessory() { QApplication::setQuitOnLastWindowClosed(false); }

void QtSurfaceFactory::activate() {
    // The window that opens next asks for the keyboard itself; there is nothing before that.
}

void QtSurfaceFactory::showAboutPanel() {
    if (!about_) {
        about_ = new AboutPanel(title_);
        QObject::connect(about_, &QObject::destroyed, &rest_, [this] { rest_.start(); });
    }
    about_->winId();
    system_.bringHere(*about_);
    about_->show();
    about_->raise();
    about_->activateWindow();
}

QWidget* QtSurfaceFactory::aboutPanel() const { return about_; }

void QtSurfaceFactory::terminate() { QCoreApplication::quit(); }

}  // namespace vtx
