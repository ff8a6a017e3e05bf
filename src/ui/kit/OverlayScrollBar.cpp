// SPDX-License-Identifier: MIT
#include "ui/kit/OverlayScrollBar.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"

namespace vtx {

namespace {
constexpr float thumbOpacity = 0.55F;
constexpr int inset = metrics::scrollBarInset;
}  // namespace

OverlayScrollBar::OverlayScrollBar(QScrollBar& model, QWidget* parent)
    : KitWidget(parent), model_(model) {
    hideTimer_.setSingleShot(true);
    hideTimer_.setTimerType(Qt::PreciseTimer);
    hideTimer_.setInterval(metrics::scrollBarShownMs);
    connect(&hideTimer_, &QTimer::timeout, this, &OverlayScrollBar::settle);
    connect(&model_, &QScrollBar::valueChanged, this, &OverlayScrollBar::reveal);
    connect(&model_, &QScrollBar::rangeChanged, this, [this] {
        if (shown_) update();
    });
}

int OverlayScrollBar::trackLength() const { return std::max(0, height() - 2 * inset); }

QRect OverlayScrollBar::thumbRect() const {
    const int range = model_.maximum() - model_.minimum();
    const int track = trackLength();
    if (range <= 0 || track <= 0) return {};
    const int natural = track * model_.pageStep() / (range + model_.pageStep());
    const int length = std::min(track, std::max(metrics::scrollBarLeast, natural));
    const int top = inset + (track - length) * (model_.value() - model_.minimum()) / range;
    return mirrored(
        {width() - inset - metrics::scrollBarWidth, top, metrics::scrollBarWidth, length});
}

void OverlayScrollBar::setHeldByFocus(bool held) {
    heldByFocus_ = held;
    held ? reveal() : settle();
}

void OverlayScrollBar::reveal() {
    shown_ = true;
    update();
    if (isVisible()) hideTimer_.start();
}

void OverlayScrollBar::settle() {
    if (heldByFocus_ || underMouse() || grip_ >= 0) return;
    shown_ = false;
    update();
}

void OverlayScrollBar::paintEvent(QPaintEvent*) {
    const QRect thumb = thumbRect();
    if (!shown_ || thumb.isEmpty()) return;
    QPainter painter(this);
    const QColor fill =
        heldByFocus_ ? color(ColorToken::accent) : color(ColorToken::text3, thumbOpacity);
    paint::fillRounded(painter, thumb, metrics::scrollBarWidth / 2.0, fill);
}

void OverlayScrollBar::enterEvent(QEnterEvent*) {
    shown_ = true;
    hideTimer_.stop();
    update();
}

void OverlayScrollBar::leaveEvent(QEvent*) {
    if (shown_) hideTimer_.start();
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    const QRect thumb = thumbRect();
    if (event->button() != Qt::LeftButton || thumb.isEmpty()) {
        event->ignore();
        return;
    }
    const int y = event->position().toPoint().y();
    const bool onThumb = y >= thumb.top() && y <= thumb.bottom();
    grip_ = onThumb ? y - thumb.top() : thumb.height() / 2;
    mouseMoveEvent(event);
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    const int room = trackLength() - thumbRect().height();
    if (grip_ < 0 || room <= 0) return;
    const int top = std::clamp(event->position().toPoint().y() - grip_ - inset, 0, room);
    const int range = model_.maximum() - model_.minimum();
    model_.setValue(model_.minimum() + (top * range + room / 2) / room);
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*) {
    grip_ = -1;
    hideTimer_.start();
}

}  // namespace vtx
