// SPDX-License-Identifier: MIT
#include "ui/surfaces/StatusItemController.h"

#include <utility>

#include "base/Clock.h"
#include "ui/shell/StatusMenu.h"
#include "ui/surfaces/QtText.h"
#include "ui/surfaces/StripView.h"
#include "ui/surfaces/TrayController.h"

namespace vtx {
namespace {

// A press on the tray takes the keyboard from the popover, which closes it; the click that the tray
// passes on after that was meant to close it, not to open it again.
constexpr Duration oneClick = std::chrono::milliseconds(400);

ButtonEvent eventOf(StatusItemClick click) {
    switch (click) {
        case StatusItemClick::right:
            return ButtonEvent::rightMouseUp;
        case StatusItemClick::control:
            return ButtonEvent::leftMouseUpWithControl;
        case StatusItemClick::left:
            break;
    }
    return ButtonEvent::leftMouseUp;
}

StatusMenuItem menuItemOf(MenuItem item) {
    if (!item.action) return StatusMenuItem::separator();
    StatusMenuItem made;
    made.title = qt(item.title);
    if (!item.key.empty()) made.shortcut = "Ctrl+" + qt(item.key).toUpper();
    made.action = std::move(item.action);
    return made;
}

}  // namespace

StatusItemController::StatusItemController(WindowSystem& system, std::unique_ptr<StatusItem> item,
                                           const QString& title, MetricsCoordinator& coordinator)
    : system_(system),
      item_(std::move(item)),
      strip_(new StripView(coordinator)),
      coordinator_(coordinator) {
    QObject::connect(strip_, &StripView::widthHintChanged, strip_, [this] {
        if (onIntrinsicWidthChange) onIntrinsicWidthChange();
    });
    const auto speak = [this] { item_->setAccessibleText(qt(strip_->spokenSummary()), {}); };
    QObject::connect(strip_, &StripView::summaryChanged, strip_, speak);
    item_->setTitle(title);
    item_->setContent(strip_);
    item_->onClick = [this](StatusItemClick click, QPoint) {
        if (onClick) onClick(eventOf(click));
    };
    speak();
}

StatusItemController::~StatusItemController() {
    QObject::disconnect(strip_, nullptr, strip_, nullptr);
    item_->onClick = nullptr;
}

void StatusItemController::joinTray(TrayHost& host, const Clock& clock) {
    clock_ = &clock;
    tray_ = std::make_unique<TrayController>(host, coordinator_, clock);
    tray_->onClick = [this](StatusItemClick click, QPoint at) { trayClicked(click, at); };
}

void StatusItemController::popoverClosed() {
    if (clock_) popoverClosedAt_ = clock_->continuous();
}

void StatusItemController::trayClicked(StatusItemClick click, QPoint at) {
    const auto closedAt = std::exchange(popoverClosedAt_, std::nullopt);
    if (click == StatusItemClick::left && closedAt && clock_->continuous() - *closedAt < oneClick) {
        return;
    }
    if (!at.isNull()) menuPlace_ = QRect(at, QSize(1, 1));
    if (onClick) onClick(eventOf(click));
    menuPlace_.reset();
}

double StatusItemController::intrinsicContentWidth() { return strip_->contentWidth(); }

void StatusItemController::setLength(double length) {
    item_->setLength(length);
    if (!shown_) item_->show();
    shown_ = true;
}

void StatusItemController::popUpMenu(std::vector<MenuItem> items) {
    std::vector<StatusMenuItem> rows;
    rows.reserve(items.size());
    for (MenuItem& item : items) rows.push_back(menuItemOf(std::move(item)));
    const StatusMenu& menu =
        StatusMenu::popUp(system_, rows, menuPlace_.value_or(item_->screenGeometry()));
    QObject::connect(&menu, &QObject::destroyed, strip_, [this] {
        if (menuDidLetGo) menuDidLetGo();
    });
}

}  // namespace vtx
