// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <functional>
#include <memory>
#include <optional>

#include "base/Date.h"
#include "ui/controller/SurfaceFactory.h"
#include "ui/shell/StatusItem.h"

namespace vtx {

class Clock;
class StripView;
class TrayController;
class TrayHost;
class WindowSystem;

/// The status item with the live strip in it and, where the desktop has a tray, an icon there that
/// takes the same clicks.
class StatusItemController final : public StatusItemSurface {
public:
    /// The system and the coordinator must outlive the item.
    StatusItemController(WindowSystem& system, std::unique_ptr<StatusItem> item,
                         const QString& title, MetricsCoordinator& coordinator);
    ~StatusItemController() override;

    /// Puts the icon into the tray; both must outlive the item.
    void joinTray(TrayHost& host, const Clock& clock);
    /// The popover has closed just now, whatever closed it.
    void popoverClosed();

    [[nodiscard]] bool hasButton() const override { return true; }
    [[nodiscard]] double intrinsicContentWidth() override;
    void setLength(double length) override;
    void popUpMenu(std::vector<MenuItem> items) override;

    /// A menu has closed and is gone.
    std::function<void()> menuDidLetGo;

    [[nodiscard]] StatusItem& item() { return *item_; }
    [[nodiscard]] StripView& strip() { return *strip_; }

private:
    void trayClicked(StatusItemClick click, QPoint at);

    WindowSystem& system_;
    std::unique_ptr<StatusItem> item_;
    StripView* strip_;  // owned by the item
    MetricsCoordinator& coordinator_;
    bool shown_ = false;
    const Clock* clock_ = nullptr;
    std::optional<Instant> popoverClosedAt_;
    /// Where the next menu opens instead of at the item, on the desktop.
    std::optional<QRect> menuPlace_;
    std::unique_ptr<TrayController> tray_;
};

}  // namespace vtx
