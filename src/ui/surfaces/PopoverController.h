// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QTimer>
#include <chrono>
#include <functional>

#include "ui/controller/SurfaceFactory.h"
#include "ui/models/PopoverSection.h"
#include "ui/shell/AnchoredWindow.h"

namespace vtx {

class PopoverView;
class StatusItem;

/// The popover under the status item: a window that belongs to it, with the sections in it. The
/// pages are made when it opens and let go some time after it closed, so that a program that nobody
/// looks at does not pay for them; the section is kept.
class PopoverController final : public PopoverSurface {
public:
    /// The system, the coordinator and the item must outlive the popover.
    PopoverController(WindowSystem& system, MetricsCoordinator& coordinator, StatusItem& item,
                      const QString& title, std::function<void(PopoverSection)> onDetachRequested);
    ~PopoverController() override;

    [[nodiscard]] bool isShown() const override { return window_.isShown(); }
    void show() override;
    void close() override { window_.dismiss(); }

    /// How long the pages stay after the popover closed: who opens it again soon finds it as it
    /// was, a filter or a place on the page with it.
    void keepPagesFor(std::chrono::milliseconds time) { grace_.setInterval(time); }

    /// As `onShow` and `onClose`, for those that it belongs to.
    std::function<void()> didShow;
    std::function<void()> didClose;
    /// The pages are gone: what they were made of can be given back.
    std::function<void()> didLetGo;

    [[nodiscard]] QWidget& window() { return window_; }

private:
    void letGo();

    MetricsCoordinator& coordinator_;
    StatusItem& item_;
    const std::function<void(PopoverSection)> onDetachRequested_;
    AnchoredWindow window_;
    PopoverSection section_ = PopoverSection::overview;
    QPointer<PopoverView> view_;
    /// Runs from the closing on.
    QTimer grace_;
};

}  // namespace vtx
