// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "base/Subscription.h"
#include "ui/kit/AccessibleParts.h"
#include "ui/shell/AnchorPlacement.h"

class QWindow;

namespace vtx {

class WindowSystem;

/// A window that belongs to the status item: it stands beside it with an arrow, and goes when the
/// user turns elsewhere, by a press anywhere else or by Escape. It is a window that the desktop
/// manages, so that it takes the keyboard like any other. Main executor; owned by the controller
/// of the bar, and kept while closed.
class AnchoredWindow final : public QWidget, public AccessibleHost {
public:
    explicit AnchoredWindow(WindowSystem& system);
    ~AnchoredWindow() override;

    /// Each once for every time that it opens and closes.
    std::function<void()> onShow;
    std::function<void()> onClose;

    /// Takes the content over and deletes the one before.
    void setContent(QWidget* content);
    void setContentSize(QSize size);

    /// Opens beside `anchor`, given on the desktop, or moves there if it is open.
    void showAt(const QRect& anchor, DockEdge docked);
    [[nodiscard]] bool isShown() const { return shown_; }
    void dismiss();

    /// To be told of the anchor's own presses. A press there is a click to come, which closes the
    /// window itself: were the window gone by then, the click would open it again.
    void anchorPressed();
    void anchorReleased();

    [[nodiscard]] const AnchoredPlace& place() const { return place_; }

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Dialog; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void focusMoved(const QWindow* window);
    void giveUp();
    void pressedAnywhere(QPoint at);
    [[nodiscard]] bool isOurs(const QWindow* window) const;
    void ended();

    WindowSystem& system_;
    QWidget* content_ = nullptr;
    QSize contentSize_;
    QRect anchor_;
    AnchoredPlace place_;
    bool shown_ = false;
    /// It has had the keyboard since it opened, and so can lose it.
    bool wasActive_ = false;
    /// It has asked for the keyboard that it lost to nobody.
    bool hasAskedBack_ = false;
    /// The anchor is held down.
    bool anchorHeld_ = false;
    /// Runs while the keyboard went elsewhere with the pointer on the anchor, as a press there may
    /// be on its way, or while it went to no window, as it may come back.
    QTimer patience_;
    Subscription presses_;
    QMetaObject::Connection focus_;
};

}  // namespace vtx
