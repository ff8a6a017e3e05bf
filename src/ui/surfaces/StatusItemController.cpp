// SPDX-License-Identifier: MIT
#include "ui/surfaces/StatusItemController.h"

#include "ui/shell/StatusMenu.h"
#include "ui/surfaces/QtText.h"
#include "ui/surfaces/StripView.h"

namespace vtx {
namespace {

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
    : system_(system), item_(std::move(item)), strip_(new StripView(coordinator)) {
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
    StatusMenu::popUp(system_, rows, item_->screenGeometry());
}

}  // namespace vtx
