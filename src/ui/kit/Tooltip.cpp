// SPDX-License-Identifier: MIT
#include "ui/kit/Tooltip.h"

#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

QPoint placeFor(const QWidget& owner, const QRect& target, QSize size) {
    const QRect global(owner.mapToGlobal(target.topLeft()), target.size());
    const QScreen* screen = owner.screen();
    const QRect room = screen ? screen->availableGeometry() : global;
    const int x = global.center().x() + 1 - size.width() / 2;
    const int below = global.bottom() + 1 + metrics::tooltipGap;
    const int above = global.top() - metrics::tooltipGap - size.height();
    const bool fitsBelow = below + size.height() <= room.bottom() + 1;
    return {std::clamp(x, room.left(), std::max(room.left(), room.right() + 1 - size.width())),
            fitsBelow ? below : above};
}

}  // namespace

Tooltip::Tooltip(QWidget& owner, const QRect& target, QString text)
    : KitWidget(&owner), text_(std::move(text)) {
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(text_);
    const int width = static_cast<int>(std::ceil(textWidth(text_, TextRole::caption)));
    resize(width + 2 * metrics::tooltipPadding, metrics::tooltipHeight);
    move(placeFor(owner, target, size()));
}

// A mask and not a translucent window: where nothing composes windows, translucency is black.
void Tooltip::resizeEvent(QResizeEvent*) {
    QPainterPath shape;
    shape.addRoundedRect(rect(), metrics::radiusSmall, metrics::radiusSmall);
    setMask(paint::maskOf(shape, size()));
}

void Tooltip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), color(ColorToken::raised));
    paint::outline(painter, rect(), metrics::radiusSmall, color(ColorToken::borderStrong),
                   paint::hairline(painter));
    painter.setPen(color(ColorToken::text1));
    drawText(painter, rect(), text_, TextRole::caption, Qt::AlignCenter);
}

HoverTip::HoverTip(QWidget& owner) : owner_(owner) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(metrics::tooltipDelayMs);
    connect(&timer_, &QTimer::timeout, this, &HoverTip::show);
}

HoverTip::~HoverTip() = default;

void HoverTip::pointAt(const QRect& target, const QString& text) {
    if (target == target_ && text == text_ && (isPending() || isShown())) return;
    dismiss();
    target_ = target;
    text_ = text;
    if (!text.isEmpty()) timer_.start();
}

void HoverTip::dismiss() {
    timer_.stop();
    tip_.reset();
}

void HoverTip::show() {
    tip_ = std::make_unique<Tooltip>(owner_, target_, text_);
    tip_->show();
}

}  // namespace vtx
