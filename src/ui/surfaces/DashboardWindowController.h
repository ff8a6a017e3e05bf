// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "ui/controller/SurfaceFactory.h"

class QWidget;

namespace vtx {

class UserDefaults;
class WindowSystem;

/// The dashboard: a normal window of sections that keeps its place and size over starts. The window
/// is kept while closed, its content is not, so that a closed dashboard costs nothing. Its frame is
/// stored when it is closed and a moment after the last move or change of size.
class DashboardWindowController final : public DashboardSurface {
public:
    /// Where the window's frame is stored.
    static constexpr std::string_view frameKey = "dashboardWindow.frame.v1";

    /// What it is given must outlive the controller.
    DashboardWindowController(WindowSystem& system, MetricsCoordinator& coordinator,
                              UserDefaults& defaults, QString title);
    ~DashboardWindowController() override;

    void show(PopoverSection section) override;

    /// The content is gone, and what the window was drawn in with it.
    std::function<void()> didLetGo;

    /// Null until it was first shown.
    [[nodiscard]] QWidget* window() const;

private:
    class Window;
    void storeFrame();
    void windowWillClose();

    WindowSystem& system_;
    MetricsCoordinator& coordinator_;
    UserDefaults& defaults_;
    const QString title_;
    std::unique_ptr<Window> window_;
};

}  // namespace vtx
