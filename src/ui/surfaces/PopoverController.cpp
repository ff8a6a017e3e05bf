// SPDX-License-Identifier: MIT
#include "ui/surfaces/PopoverController.h"

#include <utility>

#include "ui/kit/Metrics.h"
#include "ui/kit/Symbol.h"
#include "ui/shell/StatusItem.h"
#include "ui/surfaces/PopoverView.h"

namespace vtx {

PopoverController::PopoverController(WindowSystem& system, MetricsCoordinator& coordinator,
                                     StatusItem& item, const QString& title,
                                     std::function<void(PopoverSection)> onDetachRequested)
    : item_(item), window_(system) {
    window_.setWindowTitle(title);
    makeContent_ = [&coordinator, detach = std::move(onDetachRequested)] {
        return new PopoverView(coordinator, PopoverView::SurfaceKind::popover,
                               PopoverSection::overview, detach);
    };
    window_.setContentSize({metrics::popoverWidth, metrics::popoverHeight});
    window_.onShow = [this] {
        item_.setHighlighted(true);
        if (onShow) onShow();
    };
    window_.onClose = [this] {
        item_.setHighlighted(false);
        symbols::releaseCache();
        if (didClose) didClose();
        if (onClose) onClose();
    };
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
    if (makeContent_) window_.setContent(std::exchange(makeContent_, nullptr)());
    window_.showAt(item_.screenGeometry(), item_.edge());
}

}  // namespace vtx
