// SPDX-License-Identifier: MIT
#include "ui/kit/PopoverFrame.h"

#include <QPainter>
#include <QTransform>
#include <algorithm>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Theme.h"

namespace vtx {

namespace {

constexpr int arrowHeight = metrics::popoverArrowHeight;
constexpr qreal arrowHalf = metrics::popoverArrowWidth / 2.0;
// The tip comes no closer to a side than this, so that the arrow stays off the round corner.
constexpr int tipMargin = metrics::radiusWindow + metrics::popoverArrowWidth / 2;

/// From the left foot of the arrow at (-12, 0) over the tip at (0, -10) to the right foot.
void addArrow(QPainterPath& path, QPointF foot) {
    const auto at = [foot](qreal x, qreal y) { return foot + QPointF(x, y); };
    path.lineTo(at(-arrowHalf, 0));
    path.cubicTo(at(-8, 0), at(-5.7, -3.2), at(-2.6, -8));
    path.quadTo(at(0, -12), at(2.6, -8));
    path.cubicTo(at(5.7, -3.2), at(8, 0), at(arrowHalf, 0));
}

/// The body of `size` from the origin with the arrow on its top edge.
QPainterPath shapeWithArrowOnTop(QSizeF size, qreal radius, qreal tipX) {
    const qreal w = size.width();
    const qreal h = size.height();
    const qreal r = 2 * radius;
    QPainterPath path;
    path.arcMoveTo(0, 0, r, r, 180);
    path.arcTo(0, 0, r, r, 180, -90);
    addArrow(path, {tipX, 0});
    path.arcTo(w - r, 0, r, r, 90, -90);
    path.arcTo(w - r, h - r, r, r, 0, -90);
    path.arcTo(0, h - r, r, r, 270, -90);
    path.closeSubpath();
    return path;
}

int tipFor(int left, int width, int anchorMiddle) {
    return std::clamp(anchorMiddle - left, tipMargin, std::max(tipMargin, width - tipMargin));
}

int leftFor(const QRect& available, int width, int anchorMiddle) {
    const int first = available.left();
    const int last = std::max(first, available.left() + available.width() - width);
    constexpr int margin = metrics::popoverScreenMargin;
    const int kept = std::clamp(anchorMiddle - width / 2, std::min(first + margin, last),
                                std::max(first, last - margin));
    // Nearer to the edge only where the tip would otherwise miss the middle.
    const int miss = anchorMiddle - (kept + tipFor(kept, width, anchorMiddle));
    return std::clamp(kept + miss, first, last);
}

}  // namespace

QSize PopoverFrame::windowSize() const { return {body.width(), body.height() + arrowHeight}; }

QRect PopoverFrame::bodyRect() const {
    return {QPoint(0, edge == ArrowEdge::top ? arrowHeight : 0), body};
}

QPainterPath PopoverFrame::outline(qreal inset) const {
    const QSizeF size(body.width() - 2 * inset, body.height() - 2 * inset);
    const QPainterPath shape =
        shapeWithArrowOnTop(size, metrics::radiusWindow - inset, tipX - inset);
    if (edge == ArrowEdge::top) return shape.translated(inset, arrowHeight + inset);
    return QTransform(1, 0, 0, -1, inset, body.height() - inset).map(shape);
}

void PopoverFrame::paint(QPainter& painter) const {
    const qreal width = paint::hairline(painter);
    const Theme& theme = Theme::current();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.color(ColorToken::borderStrong), width));
    painter.setBrush(theme.color(ColorToken::window));
    painter.drawPath(outline(width / 2));
    painter.restore();
}

PopoverPlace placePopover(const QRect& anchor, QSize body, const QRect& available) {
    const int above = anchor.top() - available.top();
    const int below = available.bottom() - anchor.bottom();
    PopoverFrame frame;
    frame.edge = below >= above ? ArrowEdge::top : ArrowEdge::bottom;
    const int room = std::max(above, below) - arrowHeight - metrics::popoverScreenMargin;
    frame.body = {body.width(), std::clamp(room, std::min(1, body.height()), body.height())};
    const int middle = anchor.left() + anchor.width() / 2;
    const int left = leftFor(available, body.width(), middle);
    frame.tipX = tipFor(left, body.width(), middle);
    const QSize size = frame.windowSize();
    const int top = frame.edge == ArrowEdge::top ? anchor.top() + anchor.height()
                                                 : anchor.top() - size.height();
    return {QRect(QPoint(left, top), size), frame};
}

}  // namespace vtx
