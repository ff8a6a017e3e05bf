// SPDX-License-Identifier: MIT
#include "ui/kit/KitWidget.h"

#include <QFocusEvent>
#include <QStyle>

#include "ui/kit/Theme.h"

namespace vtx {

KitWidget::KitWidget(QWidget* parent) : QWidget(parent) {
    accessibility::install();
    connect(&Theme::current(), &Theme::changed, this, [this] { update(); });
}

QColor KitWidget::color(ColorToken token) { return Theme::current().color(token); }

QColor KitWidget::color(ColorToken token, float opacity) {
    return Theme::current().color(token, opacity);
}

QRect KitWidget::mirrored(const QRect& bounds) const {
    return QStyle::visualRect(layoutDirection(), rect(), bounds);
}

Qt::Alignment KitWidget::atStart() const {
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    return (leftToRight ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
}

Qt::Alignment KitWidget::atEnd() const {
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    return (leftToRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

void KitWidget::focusInEvent(QFocusEvent* event) {
    switch (event->reason()) {
        case Qt::TabFocusReason:
        case Qt::BacktabFocusReason:
        case Qt::ShortcutFocusReason:
            focusByKeyboard_ = true;
            break;
        // The window comes back as it was left.
        case Qt::ActiveWindowFocusReason:
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
            break;
        default:
            focusByKeyboard_ = false;
    }
    update();
    if (!QAccessible::isActive()) return;
    // The toolkit is about to say that the whole of it has the focus. What the keyboard acts on is
    // said after that, to be what is heard.
    const auto tell = [this] {
        const int part = focusedPart();
        if (hasFocus() && part >= 0 && part < partCount())
            accessibility::announceFocus(*this, part);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void KitWidget::focusOutEvent(QFocusEvent*) { update(); }

void KitWidget::mousePressEvent(QMouseEvent* event) {
    setFocusByKeyboard(false);
    QWidget::mousePressEvent(event);
}

void KitWidget::setFocusByKeyboard(bool byKeyboard) {
    if (focusByKeyboard_ == byKeyboard) return;
    focusByKeyboard_ = byKeyboard;
    update();
}

}  // namespace vtx
