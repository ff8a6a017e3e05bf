// SPDX-License-Identifier: MIT
#include "ui/surfaces/MiniWidgetWindowController.h"

#include "core/MetricsCoordinator.h"
#include "ui/shell/FloatingPlacement.h"
#include "ui/shell/FloatingWindow.h"
#include "ui/surfaces/MiniWidgetView.h"

namespace vtx {

MiniWidgetWindowController::MiniWidgetWindowController(WindowSystem& system,
                                                       MetricsCoordinator& coordinator,
                                                       QString title)
    : system_(system), coordinator_(coordinator), title_(std::move(title)) {}

MiniWidgetWindowController::~MiniWidgetWindowController() = default;

QWidget* MiniWidgetWindowController::window() const { return window_.get(); }

void MiniWidgetWindowController::show() {
    if (window_) {
        window_->raise();
        return;
    }
    window_ = std::make_unique<FloatingWindow>(system_);
    window_->setWindowTitle(title_);
    window_->setContent(new MiniWidgetView(coordinator_));
    window_->onMove = [this](QPoint place) { windowDidMove(place); };
    const DisplayPreferences& preferences = *coordinator_.preferences;
    window_->showAt(FloatingPlacement::saved(preferences.miniWidgetX, preferences.miniWidgetY));
}

void MiniWidgetWindowController::close() {
    if (!window_) return;
    window_.reset();
    if (didLetGo) didLetGo();
}

void MiniWidgetWindowController::windowDidMove(QPoint place) {
    coordinator_.preferences.modify([place](auto& changed) { changed.miniWidgetX = place.x(); });
    coordinator_.preferences.modify([place](auto& changed) { changed.miniWidgetY = place.y(); });
}

}  // namespace vtx
