// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include "ui/kit/KitWidget.h"

class QScrollBar;

namespace vtx {

/// The thumb over the end edge of a scroll area, driven by the area's own hidden scroll bar, which
/// also speaks for it to assistive technology. Without a timer while it is not seen.
class OverlayScrollBar final : public KitWidget {
public:
    OverlayScrollBar(QScrollBar& model, QWidget* parent);

    /// Where the thumb is, seen or not; empty where everything fits.
    [[nodiscard]] QRect thumbRect() const;
    [[nodiscard]] bool isThumbShown() const { return shown_; }
    [[nodiscard]] QTimer& hideTimer() { return hideTimer_; }
    /// Shown for as long as the keyboard acts on the area.
    void setHeldByFocus(bool held);

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::NoRole; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] int trackLength() const;
    void reveal();
    void settle();

    QScrollBar& model_;
    QTimer hideTimer_;
    bool shown_ = false;
    bool heldByFocus_ = false;
    /// From the thumb's top to the pointer while dragged, otherwise -1.
    int grip_ = -1;
};

}  // namespace vtx
