// SPDX-License-Identifier: MIT
#include "ui/kit/Paint.h"

#include <QBitmap>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Theme.h"

namespace vtx::paint {

namespace {

void strokeRounded(QPainter& painter, const QRectF& middle, qreal radius, QColor color,
                   qreal width) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width));
    painter.drawRoundedRect(middle, radius, radius);
    painter.restore();
}

/// What takes 96 spans or more the toolkit gives to threads, piece by piece, and waits for them,
/// which costs more than to draw it. Bands end on whole rows, hence the margin.
constexpr double fewSpans = 80;
/// The pixels of the arcs of two corners, in a row on average.
constexpr double spansOfArcs = 4;

/// In a row, what is between two edges, and each edge where it shares a pixel with what is beside.
int spansOfSides(const QPainter& painter, const QRectF& rect) {
    const QRectF device = painter.deviceTransform().mapRect(rect);
    return QRectF(device.toAlignedRect()) == device ? 1 : 3;
}

/// Draws `what` in bands of few spans from one row to another.
template <class F>
void inBands(QPainter& painter, const QRect& rows, double spans, F&& what) {
    const int count = static_cast<int>(std::ceil(spans / fewSpans));
    for (int i = 0; i < count; ++i) {
        const int from = rows.height() * i / count;
        const int to = rows.height() * (i + 1) / count;
        if (from == to) continue;
        painter.save();
        painter.setClipRect(QRect(rows.left(), rows.top() + from, rows.width(), to - from),
                            Qt::IntersectClip);
        what();
        painter.restore();
    }
}

/// The same picture as the whole, corners above and below and sides between them.
void fillTall(QPainter& painter, const QRectF& rect, qreal radius, int sides) {
    const auto fill = [&] { painter.drawRoundedRect(rect, radius, radius); };
    const double corner = std::min(radius, rect.height() / 2);
    const double scale = scaleOf(painter);
    const QRect around = rect.toAlignedRect().adjusted(-1, -1, 1, 1);
    const auto rows = [&around](int from, int to) {
        return QRect(around.left(), from, around.width(), to - from);
    };
    const int upper = static_cast<int>(std::ceil(rect.top() + corner));
    const int lower = std::max(upper, static_cast<int>(std::floor(rect.bottom() - corner)));
    const double spansOfCorners = (spansOfArcs + sides) * corner * scale + 1;
    inBands(painter, rows(around.top(), upper), spansOfCorners, fill);
    inBands(painter, rows(lower, around.bottom() + 1), spansOfCorners, fill);
    painter.setRenderHint(QPainter::Antialiasing, sides > 1);
    inBands(painter, rows(upper, lower), sides * (lower - upper) * scale,
            [&] { painter.fillRect(rect, painter.brush()); });
}

QColor focusColor() { return Theme::current().color(ColorToken::accent); }

}  // namespace

qreal scaleOf(const QPainter& painter) { return std::max(painter.deviceTransform().m11(), 0.25); }

qreal hairline(const QPainter& painter) {
    const qreal scale = scaleOf(painter);
    return std::max(1.0, std::floor(metrics::strokeOutline * scale)) / scale;
}

void fillRounded(QPainter& painter, const QRectF& rect, qreal radius, QColor color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const double corner = std::min(radius, rect.height() / 2);
    const int sides = spansOfSides(painter, rect);
    const double spans = 2 * spansOfArcs * corner + sides * rect.height();
    if (spans * scaleOf(painter) < fewSpans)
        painter.drawRoundedRect(rect, radius, radius);
    else
        fillTall(painter, rect, radius, sides);
    painter.restore();
}

void outline(QPainter& painter, const QRectF& rect, qreal radius, QColor color, qreal width) {
    const qreal half = width / 2;
    strokeRounded(painter, rect.adjusted(half, half, -half, -half), std::max(radius - half, 0.0),
                  color, width);
}

void focusRing(QPainter& painter, const QRectF& shape, qreal radius) {
    const qreal out = metrics::focusGap + metrics::strokeFocus / 2;
    strokeRounded(painter, shape.adjusted(-out, -out, out, out), radius + out, focusColor(),
                  metrics::strokeFocus);
}

void focusRingInside(QPainter& painter, const QRectF& shape, qreal radius) {
    outline(painter, shape, radius, focusColor(), metrics::strokeFocus);
}

void separator(QPainter& painter, qreal left, qreal right, qreal bottom, QColor color) {
    const QTransform& device = painter.deviceTransform();
    const qreal width = hairline(painter);
    const qreal y = device.map(QPointF(0, bottom)).y();
    const qreal snapped = bottom + (std::round(y) - y) / scaleOf(painter);
    painter.fillRect(QRectF(left, snapped - width, right - left, width), color);
}

void divider(QPainter& painter, qreal x, qreal top, qreal bottom, QColor color) {
    const QTransform& device = painter.deviceTransform();
    const qreal at = device.map(QPointF(x, 0)).x();
    const qreal snapped = x + (std::round(at) - at) / scaleOf(painter);
    painter.fillRect(QRectF(snapped, top, hairline(painter), bottom - top), color);
}

QRegion maskOf(const QPainterPath& shape, QSize size) {
    QBitmap bits(size);
    bits.fill(Qt::color0);
    QPainter painter(&bits);
    painter.fillPath(shape, Qt::color1);
    painter.end();
    return {bits};
}

}  // namespace vtx::paint
