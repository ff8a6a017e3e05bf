// SPDX-License-Identifier: MIT
#include "ui/shell/StripSurface.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <utility>

#include "ui/kit/Metrics.h"
#include "ui/kit/Theme.h"
#include "ui/shell/ShellShape.h"

namespace vtx {

namespace {

constexpr double hoverOpacity = 0.09;
constexpr double openOpacity = 0.17;

QPoint desktopPoint(const QMouseEvent& event) { return event.globalPosition().toPoint(); }

}  // namespace

StripSurface::StripSurface(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from where the user works
    setAttribute(Qt::WA_Hover);
    connect(&Theme::current(), &Theme::changed, this, qOverload<>(&QWidget::update));
    // What assistive software presses; the mouse and the keyboard do not come this way.
    connect(this, &QAbstractButton::clicked, this,
            [this] { activate(StatusItemClick::left, middle()); });
}

void StripSurface::setContent(QWidget* content) {
    delete std::exchange(content_, content);
    if (!content) return;
    content->setParent(this);
    content->setAttribute(Qt::WA_TransparentForMouseEvents);
    content->setFocusPolicy(Qt::NoFocus);
    content->setGeometry(rect());
    content->show();
}

void StripSurface::setHighlighted(bool highlighted) {
    if (std::exchange(highlighted_, highlighted) != highlighted) update();
}

void StripSurface::setTouching(Qt::Edges touching) {
    if (std::exchange(touching_, touching) != touching) update();
}

QPainterPath StripSurface::shape() const {
    return ShellShape::rounded(rect(), touching_, metrics::stripRadius);
}

bool StripSurface::event(QEvent* event) {
    switch (event->type()) {
        // No hover is told while a menu is open.
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::HoverEnter:
        case QEvent::HoverLeave:
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
            update();
            break;
        default:
            break;
    }
    return QAbstractButton::event(event);
}

double StripSurface::stateOpacity() const {
    if (highlighted_ || held_ != Qt::NoButton) return openOpacity;
    return underMouse() ? hoverOpacity : 0;
}

void StripSurface::paintEvent(QPaintEvent* event) {
    const Theme& theme = Theme::current();
    QPainter painter(this);

    // The outline runs on the sides that face the desktop; on the others it lies out of view.
    const QPen pen =
        ShellShape::outline(theme.color(ColorToken::borderStrong), devicePixelRatioF());
    const auto inset = [this, &pen](Qt::Edge side) {
        return touching_.testFlag(side) ? -2.0 : pen.widthF() / 2;
    };
    const QRectF framed = QRectF(rect()).adjusted(inset(Qt::LeftEdge), inset(Qt::TopEdge),
                                                  -inset(Qt::RightEdge), -inset(Qt::BottomEdge));
    const QColor ground = over(theme.color(ColorToken::window),
                               theme.color(ColorToken::text1, static_cast<float>(stateOpacity())));
    // Part by part: the toolkit spreads what it cuts into many spans over threads, and waking them
    // costs more than they save.
    const QPainterPath body = ShellShape::rounded(framed, touching_, metrics::stripRadius);
    for (const QRect& part : event->region()) {
        painter.setClipRect(part);
        ShellShape::paint(painter, *this, body, pen, ground);
    }
    painter.setClipping(false);

    if (!hasFocus() || !isActiveWindow()) return;
    constexpr double half = metrics::strokeFocus / 2;
    painter.setPen(QPen(theme.color(ColorToken::accent), metrics::strokeFocus));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(ShellShape::rounded(QRectF(rect()).adjusted(half, half, -half, -half),
                                         touching_, metrics::stripRadius - half));
}

void StripSurface::resizeEvent(QResizeEvent*) {
    if (content_) content_->setGeometry(rect());
}

void StripSurface::mousePressEvent(QMouseEvent* event) {
    const bool ours = event->button() == Qt::LeftButton || event->button() == Qt::RightButton;
    if (!ours || held_ != Qt::NoButton) return;
    held_ = event->button();
    pressedAt_ = desktopPoint(*event);
    dragging_ = false;
    update();
    if (onPress) onPress();
}

void StripSurface::mouseMoveEvent(QMouseEvent* event) {
    if (held_ != Qt::LeftButton) return;
    const QPoint moved = desktopPoint(*event) - pressedAt_;
    if (!dragging_ && moved.manhattanLength() < QApplication::startDragDistance()) return;
    if (!std::exchange(dragging_, true) && onRelease) onRelease();
    if (onDrag) onDrag(moved);
}

void StripSurface::mouseReleaseEvent(QMouseEvent* event) {
    if (held_ == Qt::NoButton || event->button() != held_) return;
    const Qt::MouseButton button = std::exchange(held_, Qt::NoButton);
    update();
    const QPoint at = desktopPoint(*event);
    if (std::exchange(dragging_, false)) {
        if (onDrop) onDrop(at);
        return;
    }
    const bool inside = rect().contains(mapFromGlobal(at));
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    if (inside && button == Qt::RightButton) activate(StatusItemClick::right, at);
    if (inside && button == Qt::LeftButton)
        activate(control ? StatusItemClick::control : StatusItemClick::left, at);
    if (onRelease) onRelease();
}

void StripSurface::keyPressEvent(QKeyEvent* event) {
    const bool shiftF10 =
        event->key() == Qt::Key_F10 && event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (!event->isAutoRepeat()) activate(StatusItemClick::left, middle());
            return;
        case Qt::Key_Menu:
            activate(StatusItemClick::right, middle());
            return;
        default:
            if (shiftF10) return activate(StatusItemClick::right, middle());
            event->ignore();
    }
}

void StripSurface::keyReleaseEvent(QKeyEvent* event) { event->ignore(); }

void StripSurface::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();  // the press that asks for it has been told already
}

void StripSurface::activate(StatusItemClick click, QPoint at) {
    if (onClick) onClick(click, at);
}

}  // namespace vtx
