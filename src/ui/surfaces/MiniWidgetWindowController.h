// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>
#include <functional>
#include <memory>

#include "ui/controller/SurfaceFactory.h"

class QWidget;

namespace vtx {

class FloatingWindow;
class WindowSystem;

/// The mini widget's panel. It is there from `show` to `close`, so that a hidden one costs nothing,
/// and stands where the user last put it.
class MiniWidgetWindowController final : public MiniWidgetSurface {
public:
    /// The system and the coordinator must outlive the controller.
    MiniWidgetWindowController(WindowSystem& system, MetricsCoordinator& coordinator,
                               QString title);
    ~MiniWidgetWindowController() override;

    void show() override;
    void close() override;

    /// The panel is gone, and what it was drawn in with it.
    std::function<void()> didLetGo;

    /// Null while it is hidden.
    [[nodiscard]] QWidget* window() const;

private:
    void windowDidMove(QPoint place);

    WindowSystem& system_;
    MetricsCoordinator& coordinator_;
    const QString title_;
    std::unique_ptr<FloatingWindow> window_;
};

}  // namespace vtx
