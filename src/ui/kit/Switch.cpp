// SPDX-License-Identifier: MIT
#include "ui/kit/Switch.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "ui/kit/Knob.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"

namespace vtx {

namespace {
constexpr int reach = metrics::focusReach;
constexpr float offOpacity = 0.20F;
constexpr double radius = metrics::switchHeight / 2.0;
}  // namespace

Switch::Switch(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    slide_.setDuration(metrics::switchMs);
    slide_.setEasingCurve(QEasingCurve::OutCubic);
    connect(&slide_, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void Switch::setOn(bool on) {
    if (isOn_ == on) return;
    const double from = position();
    slide_.stop();
    isOn_ = on;
    if (motion_ == Motion::full && isVisible()) {
        slide_.setStartValue(from);
        slide_.setEndValue(on ? 1.0 : 0.0);
        slide_.start();
    }
    update();
    accessibility::announceChecked(*this);
}

double Switch::position() const {
    if (slide_.state() == QAbstractAnimation::Running) return slide_.currentValue().toDouble();
    return isOn_ ? 1 : 0;
}

QSize Switch::sizeHint() const {
    return {metrics::switchWidth + 2 * reach, metrics::switchHeight + 2 * reach};
}

QRect Switch::shape() const { return rect().adjusted(reach, reach, -reach, -reach); }

void Switch::pressWhole() {
    if (!isEnabled()) return;
    setOn(!isOn_);
    Q_EMIT toggled(isOn_);
}

void Switch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(metrics::controlDisabled);
    const QRectF ground = shape();
    const double on = layoutDirection() == Qt::LeftToRight ? position() : 1 - position();
    const QColor off = color(ColorToken::text1, offOpacity);
    paint::fillRounded(painter, ground, radius, isOn_ ? color(ColorToken::accent) : off);
    if (!isOn_)
        paint::outline(painter, ground, radius, color(ColorToken::cardBorder),
                       paint::hairline(painter));

    constexpr double inset = metrics::switchInset;
    const double width = isPressed_ ? metrics::switchKnobPressed : metrics::switchKnob;
    const double way = ground.width() - 2 * inset - width;
    const QRectF knob(ground.left() + inset + on * way, ground.top() + inset, width,
                      metrics::switchKnob);
    if (isOn_) {
        paint::fillRounded(painter, knob, metrics::switchKnob / 2.0, color(ColorToken::onAccent));
    } else {
        knob::paint(painter, knob, {});
    }
    if (showsFocus()) paint::focusRing(painter, ground, radius);
}

void Switch::setPressed(bool pressed) {
    if (isPressed_ == pressed) return;
    isPressed_ = pressed;
    update();
}

void Switch::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) setPressed(true);
    event->accept();
}

void Switch::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const bool wasPressed = isPressed_;
    setPressed(false);
    // The room of the focus ring is part of the target, which would be less than 24 high.
    if (wasPressed && rect().contains(event->position().toPoint())) pressWhole();
}

void Switch::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space || event->isAutoRepeat()) {
        KitWidget::keyPressEvent(event);
        return;
    }
    setFocusByKeyboard(true);
    pressWhole();
}

void Switch::changeEvent(QEvent* event) {
    KitWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange) return;
    isPressed_ = false;
    update();
}

void Switch::hideEvent(QHideEvent* event) {
    slide_.stop();
    isPressed_ = false;
    KitWidget::hideEvent(event);
}

}  // namespace vtx
