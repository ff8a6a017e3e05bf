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
    painter.drawRoundedRect(rect, radius, radius);
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
