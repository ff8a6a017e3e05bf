// SPDX-License-Identifier: MIT
#include "ui/kit/SegmentedControl.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/kit/AccessibleChoice.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

constexpr int inset = metrics::segmentInset;
// Room for the focus ring, which lies around the control.
constexpr int ringRoom = metrics::focusReach;

int widthOf(const QString& label) {
    // The chosen one is set heavier: nothing moves when the choice does.
    const qreal widest =
        std::max(textWidth(label, TextRole::label), textWidth(label, TextRole::labelValue));
    return static_cast<int>(std::ceil(widest)) + 2 * metrics::segmentPadding;
}

}  // namespace

SegmentedControl::SegmentedControl(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    slide_.setDuration(metrics::segmentMs);
    slide_.setEasingCurve(QEasingCurve::OutCubic);
    connect(&slide_, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void SegmentedControl::setSegments(std::vector<QString> labels) {
    const bool isSame = std::ranges::equal(labels, segments_, {}, {}, &Segment::label);
    if (isSame) return;
    segments_.clear();
    for (QString& label : labels) {
        const int width = widthOf(label);
        segments_.push_back({std::move(label), width});
    }
    slide_.stop();
    hovered_ = pressed_ = -1;
    updateGeometry();
    update();
}

void SegmentedControl::setCurrent(int index) {
    if (current_ == index) return;
    const int before = std::exchange(current_, index);
    slideFrom(before);
    update();
    for (const int changed : {before, index})
        if (isPart(changed)) accessibility::announceChoice(*this, changed);
}

void SegmentedControl::slideFrom(int index) {
    const QRectF from = slide_.state() == QAbstractAnimation::Running
                            ? slide_.currentValue().toRectF()
                            : QRectF(isPart(index) ? partRect(index) : QRect());
    slide_.stop();
    const bool moves = motion_ == Motion::full && isVisible() && isPart(index) && isPart(current_);
    if (!moves) return;
    slide_.setStartValue(from);
    slide_.setEndValue(QRectF(partRect(current_)));
    slide_.start();
}

QSize SegmentedControl::sizeHint() const {
    int width = 2 * inset;
    for (const Segment& segment : segments_) width += segment.width;
    return {width + 2 * ringRoom, metrics::segmentedHeight + 2 * ringRoom};
}

QRect SegmentedControl::body() const {
    return rect().adjusted(ringRoom, ringRoom, -ringRoom, -ringRoom);
}

AccessiblePart SegmentedControl::part(int index) const {
    return {.name = segments_.at(static_cast<std::size_t>(index)).label,
            .value = {},
            .role = QAccessible::RadioButton,
            .pressable = isEnabled(),
            .selected = index == current_};
}

QRect SegmentedControl::partRect(int index) const {
    const int spare = std::max(0, width() - sizeHint().width());
    // By their ends, so that no pixel is lost between them.
    const auto sharedBefore = [&](int i) { return spare * i / std::max(1, partCount()); };
    int left = body().left() + inset + sharedBefore(index);
    for (int i = 0; i < index; ++i) left += segments_.at(static_cast<std::size_t>(i)).width;
    const int own = segments_.at(static_cast<std::size_t>(index)).width;
    return mirrored({left, body().top() + inset,
                     own + sharedBefore(index + 1) - sharedBefore(index),
                     metrics::segmentedHeight - 2 * inset});
}

void SegmentedControl::pressPart(int index) {
    if (index == current_ || !isEnabled()) return;
    setCurrent(index);
    if (hasFocus()) accessibility::announceFocus(*this, index);
    Q_EMIT selected(index);
}

int SegmentedControl::partAt(QPoint position) const {
    for (int i = 0; i < partCount(); ++i) {
        // The whole height is the target.
        if (partRect(i).adjusted(0, -inset, 0, inset).contains(position)) return i;
    }
    return -1;
}

void SegmentedControl::setLit(int hovered, int pressed) {
    if (hovered_ == hovered && pressed_ == pressed) return;
    hovered_ = hovered;
    pressed_ = pressed;
    update();
}

void SegmentedControl::mouseMoveEvent(QMouseEvent* event) {
    setLit(partAt(event->position().toPoint()), pressed_);
}

void SegmentedControl::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) setLit(hovered_, partAt(event->position().toPoint()));
    event->accept();
}

void SegmentedControl::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int index = pressed_;
    setLit(hovered_, -1);
    if (index >= 0 && index == partAt(event->position().toPoint())) pressPart(index);
}

void SegmentedControl::leaveEvent(QEvent*) { setLit(-1, pressed_); }

void SegmentedControl::hideEvent(QHideEvent* event) {
    slide_.stop();
    setLit(-1, -1);
    KitWidget::hideEvent(event);
}

void SegmentedControl::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) update();
    KitWidget::changeEvent(event);
}

std::optional<int> SegmentedControl::target(int key) const {
    const int last = partCount() - 1;
    const int forward = layoutDirection() == Qt::LeftToRight ? 1 : -1;
    switch (key) {
        case Qt::Key_Right:
            return std::clamp(current_ + forward, 0, last);
        case Qt::Key_Left:
            return std::clamp(current_ - forward, 0, last);
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return last;
        default:
            return std::nullopt;
    }
}

void SegmentedControl::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const std::optional<int> chosen =
        partCount() > 0 && plain ? target(event->key()) : std::nullopt;
    if (!chosen) {
        event->ignore();
        return;
    }
    setFocusByKeyboard(true);
    pressPart(*chosen);
}

QRectF SegmentedControl::thumbRect() const {
    return slide_.state() == QAbstractAnimation::Running ? slide_.currentValue().toRectF()
                                                         : QRectF(partRect(current_));
}

void SegmentedControl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(metrics::segmentDisabled);
    paint::fillRounded(painter, body(), metrics::radiusButton, color(ColorToken::track));
    if (isPart(current_)) {
        const QRectF thumb = thumbRect();
        paint::fillRounded(painter, thumb, metrics::radiusSegment, color(ColorToken::thumb));
        paint::outline(painter, thumb, metrics::radiusSegment, color(ColorToken::cardBorder),
                       paint::hairline(painter));
    }
    for (int i = 0; i < partCount(); ++i) paintSegment(painter, i);
    if (showsFocus()) paint::focusRing(painter, body(), metrics::radiusButton);
}

void SegmentedControl::paintSegment(QPainter& painter, int index) const {
    const QRect bounds = partRect(index);
    const bool isCurrent = index == current_;
    const bool isLit = isEnabled() && (index == hovered_ || index == pressed_);
    if (isLit && !isCurrent)
        paint::fillRounded(painter, bounds, metrics::radiusSegment,
                           color(index == pressed_ ? ColorToken::press : ColorToken::hover));
    painter.setPen(color(isCurrent || isLit ? ColorToken::text1 : ColorToken::text2));
    drawText(painter, bounds, segments_[static_cast<std::size_t>(index)].label,
             isCurrent ? TextRole::labelValue : TextRole::label, Qt::AlignCenter);
}

}  // namespace vtx
