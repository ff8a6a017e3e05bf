// SPDX-License-Identifier: MIT
#include "ui/kit/Slider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/Knob.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"

namespace vtx {

namespace {
constexpr double knobSize = metrics::sliderKnob;
constexpr double trackHeight = metrics::sliderTrack;
// Page Up and Down go about a tenth of the way.
constexpr double pagesOfRange = 10;
}  // namespace

Slider::Slider(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
}

void Slider::setRange(SliderRange range) {
    if (range_ == range) return;
    range_ = range;
    update();
}

void Slider::setValue(double value) {
    if (value_ == value || (std::isnan(value_) && std::isnan(value))) return;
    value_ = value;
    update();
    accessibility::announceRange(*this, value);
}

void Slider::setSpokenValue(const QString& text) { setAccessibleDescription(text); }

QSize Slider::sizeHint() const { return {metrics::sliderWidth, metrics::sliderHeight}; }

QSize Slider::minimumSizeHint() const { return {metrics::sliderLeast, metrics::sliderHeight}; }

std::optional<AccessibleRange> Slider::range() const {
    return AccessibleRange{value_, range_.min, range_.max, range_.step};
}

void Slider::setRangeValue(double value) { choose(value); }

QRectF Slider::track() const {
    // The knob ends where the track does.
    return {0, (height() - trackHeight) / 2, static_cast<double>(width()), trackHeight};
}

double Slider::fraction() const {
    const double span = range_.max - range_.min;
    // A value that is no number stands at the beginning.
    if (!(span > 0) || std::isnan(value_)) return 0;
    return std::clamp((value_ - range_.min) / span, 0.0, 1.0);
}

QRectF Slider::knobRect() const {
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    const double along = leftToRight ? fraction() : 1 - fraction();
    const double size = grip_ ? metrics::sliderKnobPressed : knobSize;
    const double middle = knobSize / 2 + along * (width() - knobSize);
    // Held at an end it would be cut off.
    const double left = std::clamp(middle - size / 2, 0.0, std::max(0.0, width() - size));
    return {left, (height() - size) / 2, size, size};
}

double Slider::valueAt(double x) const {
    const double way = std::max(1.0, width() - knobSize);
    const double along = std::clamp((x - knobSize / 2) / way, 0.0, 1.0);
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    return range_.min + (leftToRight ? along : 1 - along) * (range_.max - range_.min);
}

double Slider::snapped(double value) const {
    if (!(value >= range_.min)) return range_.min;
    const double steps = std::round((value - range_.min) / range_.step);
    return std::min(range_.max, range_.min + steps * range_.step);
}

void Slider::choose(double value) {
    const double chosen = snapped(value);
    if (chosen == value_) return;
    setValue(chosen);
    Q_EMIT moved(chosen);
}

void Slider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(metrics::controlDisabled);
    const QRectF whole = track();
    const QRectF knob = knobRect();
    paint::fillRounded(painter, whole, trackHeight / 2, color(ColorToken::track));
    QRectF filled = whole;
    if (layoutDirection() == Qt::LeftToRight) {
        filled.setRight(knob.center().x());
    } else {
        filled.setLeft(knob.center().x());
    }
    paint::fillRounded(painter, filled, trackHeight / 2, color(ColorToken::accent));
    const bool isLit = isHovered_ || grip_;
    knob::paint(painter, knob, isLit ? color(ColorToken::borderStrong) : QColor());
    // There is no room outside for a ring around the whole strip, and the knob is what moves.
    if (showsFocus()) paint::focusRing(painter, knob.adjusted(1, 1, -1, -1), knobSize / 2);
}

void Slider::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    event->accept();
    if (event->button() != Qt::LeftButton) return;
    const QRectF knob = knobRect();
    const double x = event->position().x();
    const bool isOnKnob = x >= knob.left() && x <= knob.right();
    grip_ = isOnKnob ? x - knob.center().x() : 0;
    if (!isOnKnob) choose(valueAt(x));
    update();
}

void Slider::mouseMoveEvent(QMouseEvent* event) {
    if (grip_) choose(valueAt(event->position().x() - *grip_));
}

void Slider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    grip_.reset();
    update();
}

void Slider::enterEvent(QEnterEvent*) {
    isHovered_ = isEnabled();
    update();
}

void Slider::leaveEvent(QEvent*) {
    isHovered_ = false;
    update();
}

std::optional<double> Slider::target(int key) const {
    const double at = std::isnan(value_) ? range_.min : std::clamp(value_, range_.min, range_.max);
    const double forward = layoutDirection() == Qt::LeftToRight ? range_.step : -range_.step;
    const double page = std::max(range_.step, (range_.max - range_.min) / pagesOfRange);
    switch (key) {
        case Qt::Key_Right:
            return at + forward;
        case Qt::Key_Left:
            return at - forward;
        case Qt::Key_Up:
            return at + range_.step;
        case Qt::Key_Down:
            return at - range_.step;
        case Qt::Key_PageUp:
            return at + page;
        case Qt::Key_PageDown:
            return at - page;
        case Qt::Key_Home:
            return range_.min;
        case Qt::Key_End:
            return range_.max;
        default:
            return std::nullopt;
    }
}

void Slider::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const auto chosen = plain ? target(event->key()) : std::nullopt;
    if (!chosen) {
        KitWidget::keyPressEvent(event);
        return;
    }
    setFocusByKeyboard(true);
    choose(*chosen);
}

void Slider::changeEvent(QEvent* event) {
    KitWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange) return;
    grip_.reset();
    isHovered_ = false;
    update();
}

void Slider::hideEvent(QHideEvent* event) {
    grip_.reset();
    isHovered_ = false;
    KitWidget::hideEvent(event);
}

}  // namespace vtx
