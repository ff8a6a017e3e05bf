// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <memory>
#include <optional>
#include <vector>

#include "ui/shell/StatusItem.h"
#include "ui/shell/StripWindow.h"

namespace vtx {

class StripSurface;
class UserDefaults;
class WindowSystem;

/// The status item of a desktop without a bar of its own for us: a frameless strip that the user
/// drags anywhere. Dropped on an edge it docks there and, at the top and bottom, reserves its
/// height; its place is remembered, and screens that come, go or change are followed.
class StripStatusItem final : public StatusItem {
public:
    StripStatusItem(WindowSystem& system, UserDefaults& defaults);
    ~StripStatusItem() override;

    void setLength(double length) override;
    [[nodiscard]] double thickness() const override;
    void setContent(QWidget* content) override;
    void setHighlighted(bool highlighted) override;
    void setTitle(const QString& title) override;
    void setAccessibleText(const QString& name, const QString& description) override;
    void show() override;
    [[nodiscard]] QRect screenGeometry() const override { return place_.frame; }
    [[nodiscard]] DockEdge edge() const override { return place_.edge; }

private:
    void followScreens();
    /// Looks at the screens again once control is back in the event loop, however often asked.
    void screensChanged();
    /// Asks the window system for the screens and what others take of them.
    void lookAtScreens();
    [[nodiscard]] QMargins keptByDesktop(const ShellScreen& screen);
    void replace();
    void apply(const StripPlace& place);
    void drag(QPoint moved);
    void drop(QPoint pointer);

    WindowSystem& system_;
    UserDefaults& defaults_;
    StripWindow window_;
    StripSurface* surface_;
    /// As last looked at: at the start, when they change, and around a drag.
    StripPlacement::Screens screens_;
    StripRecord record_;
    StripPlace place_;
    QSize size_;
    /// Where the strip stood when it was seized; absent while it is not dragged.
    std::optional<QRect> seized_;
    /// Logical pixels that the desktop keeps for itself without a window's reservation, as seen
    /// when a screen was first met: later the strip's own are among those the desktop tells of.
    struct Kept {
        QString screen;
        QMargins margins;
    };
    std::vector<Kept> kept_;
    /// What is reserved now.
    std::optional<Strut> reserved_;
    bool replacePending_ = false;
    /// Ends the connections to screens and application with the item.
    QObject connections_;
};

}  // namespace vtx
