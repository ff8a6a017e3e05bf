// SPDX-License-Identifier: MIT
#include "app/PictureTour.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QScreen>
#include <QWidget>
#include <cstdio>

#include "base/Sleep.h"
#include "ui/controller/MenuBarController.h"
#include "ui/surfaces/DashboardWindowController.h"
#include "ui/surfaces/LanguagePickerWindowController.h"
#include "ui/surfaces/MiniWidgetWindowController.h"
#include "ui/surfaces/PopoverController.h"
#include "ui/surfaces/QtSurfaceFactory.h"
#include "ui/surfaces/StatusItemController.h"
#include "ui/surfaces/StripView.h"

namespace vtx {
namespace {

constexpr double untilFirstReadings = 2.5;
constexpr double untilDrawn = 0.8;
constexpr int spokenSummaries = 5;

}  // namespace

PictureTour::PictureTour(QString folder, Clock& clock, Executor& main, QtSurfaceFactory& surfaces)
    : folder_(std::move(folder)), clock_(clock), surfaces_(surfaces), tasks_(main) {}

void PictureTour::start(MenuBarController& controller) {
    tasks_.spawn([this, &controller](const std::stop_token&) { return walk(controller); });
}

Task<> PictureTour::wait(double span) {
    co_await clock_.sleepUntil(clock_.continuous() + seconds(span), {}, {});
}

Task<> PictureTour::walk(MenuBarController& controller) {
    // Nothing of it is stored: the next start of a new user still asks.
    surfaces_.languagePicker()->present(Language::en, [](Language) {});
    co_await wait(untilFirstReadings);
    save(surfaces_.languagePicker()->window(), "picker");
    surfaces_.languagePicker()->window()->hide();
    StripView& strip = surfaces_.statusItem()->strip();
    save(strip.window(), "strip");

    surfaces_.miniWidget()->show();
    co_await wait(untilDrawn);
    save(surfaces_.miniWidget()->window(), "widget");
    if (!controller.coordinator().preferences->miniWidgetEnabled) surfaces_.miniWidget()->close();

    controller.togglePopover();
    co_await wait(untilDrawn);
    save(&surfaces_.popover()->window(), "popover");
    controller.togglePopover();
    co_await wait(untilDrawn);

    controller.handleStatusItemClick(ButtonEvent::rightMouseUp);
    co_await wait(untilDrawn);
    save(QApplication::activePopupWidget(), "menu");
    if (auto* menu = QApplication::activePopupWidget()) menu->close();

    controller.openDashboardWindow();
    co_await wait(untilDrawn);
    save(surfaces_.dashboard()->window(), "dashboard");
    surfaces_.dashboard()->window()->close();

    controller.showAbout();
    co_await wait(untilDrawn);
    save(surfaces_.aboutPanel(), "about");
    if (auto* about = surfaces_.aboutPanel()) about->close();

    for (int i = 0; i < spokenSummaries; ++i) {
        co_await wait(1.0);
        std::printf("%s\n", strip.spokenSummary().c_str());
        std::fflush(stdout);
    }
    QCoreApplication::exit(failed_ ? 1 : 0);
}

void PictureTour::save(QWidget* window, const char* name) {
    const QString path = QDir(folder_).filePath(QString(name) + ".png");
    QPixmap picture;
    if (window && window->isVisible()) {
        const QRect frame = window->frameGeometry();
        picture =
            window->screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height());
        if (picture.isNull()) picture = window->grab();
    }
    if (QDir().mkpath(folder_) && !picture.isNull() && picture.save(path)) return;
    std::fprintf(stderr, "vantrix: no picture of the %s could be saved as %s\n", name,
                 qUtf8Printable(path));
    failed_ = true;
}

}  // namespace vtx
