// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "ui/kit/AccessibleParts.h"

namespace vtx {

class WindowSystem;

/// A rounded panel without a frame that floats above the windows of every desktop, never takes the
/// keyboard from what the user works with, and is moved by its ground. Screens that come and go
/// leave it in view, and where it was put as soon as that is to be seen. Only its owner closes it.
/// Main executor.
class FloatingWindow final : public QWidget, public AccessibleHost {
public:
    /// The system must outlive the window.
    explicit FloatingWindow(WindowSystem& system);

    /// The user, or the window manager for him, has moved the panel there; its own placing and
    /// being brought back into view are not told.
    std::function<void(QPoint)> onMove;

    /// Takes the content over and is of its size from then on.
    void setContent(QWidget* content);

    /// Shows the panel at the saved place, if there is one, without making it the active window.
    void showAt(std::optional<QPoint> saved);

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Window; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void followScreens();
    void screensChanged();
    void comeHome();
    void placeAt(QPoint place);
    [[nodiscard]] QPainterPath shape(double inset) const;

    WindowSystem& system_;
    /// Where it was put or moved to; on screens that do not show that it stands elsewhere.
    QPoint home_;
    /// Where it put itself; absent once it was moved.
    std::optional<QPoint> placed_;
    bool isLookPending_ = false;
    /// Where on the panel it was seized; absent while it is not dragged.
    std::optional<QPoint> seized_;
};

}  // namespace vtx
