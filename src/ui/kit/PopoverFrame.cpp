// SPDX-License-Identifier: MIT
#include "ui/kit/PopoverFrame.h"

#include <QPainter>
#include <QTransform>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Theme.h"

namespace vtx {

namespace {

constexpr int arrowHeight = metrics::popoverArrowHeight;
constexpr qreal arrowHalf = metrics::popoverArrowWidth / 2.0;

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

}  // namespace vtx
