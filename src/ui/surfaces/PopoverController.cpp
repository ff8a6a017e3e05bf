// SPDX-License-Identifier: MIT
#include "ui/surfaces/PopoverController.h"

#include <QDialog>
#include <algorithm>
#include <chrono>
#include <utility>

#include "ui/kit/Metrics.h"
#include "ui/shell/StatusItem.h"
#include "ui/surfaces/PopoverView.h"

namespace vtx {
namespace {

constexpr std::chrono::seconds grace{5};

/// A dialog of the desktop's own takes the keyboard away and so closes the popover; what is chosen
/// there is told to the page.
bool hasOpenDialog(const QWidget& window) {
    return std::ranges::any_of(window.findChildren<QDialog*>(),
                               [](const QDialog* dialog) { return dialog->isVisible(); });
}

}  // namespace

PopoverController::PopoverController(WindowSystem& system, MetricsCoordinator& coordinator,
                                     StatusItem& item, const QString& title,
                                     std::function<void(PopoverSection)> onDetachRequested)
    : coordinator_(coordinator),
      item_(item),
      onDetachRequested_(std::move(onDetachRequested)),
      window_(system) {
    window_.setWindowTitle(title);
    window_.setContentSize({metrics::popoverWidth, metrics::popoverHeight});
    window_.onShow = [this] {
        item_.setHighlighted(true);
        if (didShow) didShow();
        if (onShow) onShow();
    };
    window_.onClose = [this] {
        item_.setHighlighted(false);
        grace_.start();
        if (didClose) didClose();
        if (onClose) onClose();
    };
    grace_.setSingleShot(true);
    grace_.setTimerType(Qt::PreciseTimer);
    keepPagesFor(grace);
    QObject::connect(&grace_, &QTimer::timeout, &window_, [this] { letGo(); });
    item_.onPress = [this] { window_.anchorPressed(); };
    item_.onRelease = [this] { window_.anchorReleased(); };
    item_.onMove = [this] {
        if (window_.isShown()) window_.showAt(item_.screenGeometry(), item_.edge());
    };
}

PopoverController::~PopoverController() {
    window_.onShow = window_.onClose = nullptr;
    item_.onPress = item_.onRelease = item_.onMove = nullptr;
}

void PopoverController::show() {
    grace_.stop();
    if (!view_) {
        view_ = new PopoverView(coordinator_, PopoverView::SurfaceKind::popover, section_,
                                onDetachRequested_);
        window_.setContent(view_);
    }
    window_.showAt(item_.screenGeometry(), item_.edge());
}

void PopoverController::letGo() {
    if (!view_ || window_.isShown()) return;
    if (hasOpenDialog(window_)) return grace_.start();
    section_ = view_->selectedSection();
    window_.setContent(nullptr);
    if (didLetGo) didLetGo();
}

}  // namespace vtx
