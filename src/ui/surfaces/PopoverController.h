// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controller/SurfaceFactory.h"
#include "ui/shell/AnchoredWindow.h"

namespace vtx {

class StatusItem;

/// The popover under the status item: a window that belongs to it, with the sections in it.
class PopoverController final : public PopoverSurface {
public:
    /// The system, the coordinator and the item must outlive the popover.
    PopoverController(WindowSystem& system, MetricsCoordinator& coordinator, StatusItem& item,
                      const QString& title, std::function<void(PopoverSection)> onDetachRequested);
    ~PopoverController() override;

    [[nodiscard]] bool isShown() const override { return window_.isShown(); }
    void show() override;
    void close() override { window_.dismiss(); }

    /// As `onClose`, for the item that it belongs to.
    std::function<void()> didClose;

    [[nodiscard]] QWidget& window() { return window_; }

private:
    StatusItem& item_;
    AnchoredWindow window_;
    /// Makes the pages when they are first asked for: a program whose popover was never opened does
    /// not pay for them. Null from then on.
    std::function<QWidget*()> makeContent_;
};

}  // namespace vtx
