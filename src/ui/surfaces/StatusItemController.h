// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/controller/SurfaceFactory.h"
#include "ui/shell/StatusItem.h"

namespace vtx {

class StripView;
class WindowSystem;

/// The status item with the live strip in it.
class StatusItemController final : public StatusItemSurface {
public:
    /// The system and the coordinator must outlive the item.
    StatusItemController(WindowSystem& system, std::unique_ptr<StatusItem> item,
                         const QString& title, MetricsCoordinator& coordinator);
    ~StatusItemController() override;

    [[nodiscard]] bool hasButton() const override { return true; }
    [[nodiscard]] double intrinsicContentWidth() override;
    void setLength(double length) override;
    void popUpMenu(std::vector<MenuItem> items) override;

    [[nodiscard]] StatusItem& item() { return *item_; }
    [[nodiscard]] StripView& strip() { return *strip_; }

private:
    WindowSystem& system_;
    std::unique_ptr<StatusItem> item_;
    StripView* strip_;  // owned by the item
    bool shown_ = false;
};

}  // namespace vtx
