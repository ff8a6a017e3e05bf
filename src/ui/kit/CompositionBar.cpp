// SPDX-License-Identifier: MIT
#include "ui/kit/CompositionBar.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/kit/Bars.h"
#include "ui/kit/Metrics.h"

namespace vtx {

CompositionBar::CompositionBar(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void CompositionBar::setParts(std::vector<CompositionPart> parts) {
    for (CompositionPart& part : parts) part.share = bars::fraction(part.share);
    if (parts_ == parts) return;
    parts_ = std::move(parts);
    update();
}

void CompositionBar::setSpoken(const QString& text) {
    if (accessibleName() != text) setAccessibleName(text);
}

QSize CompositionBar::sizeHint() const {
    return {metrics::cardContentWidth, metrics::compositionHeight};
}

QSize CompositionBar::minimumSizeHint() const {
    return {2 * metrics::compositionRadius, metrics::compositionHeight};
}

std::vector<CompositionBar::Segment> CompositionBar::layOut(qreal length) const {
    std::vector<Segment> found;
    double before = 0;
    for (const CompositionPart& part : parts_) {
        const qreal left = std::min(before, 1.0) * length;
        before += part.share;
        const qreal right = std::min(before, 1.0) * length;
        const bool isSliver =
            right < metrics::compositionRadius || left > length - metrics::compositionRadius;
        if (isSliver && !found.empty()) found.back().rect.setRight(right);
        if (right - left < 1 || isSliver) continue;
        // The gap is cut from a part's beginning, but never all of it.
        const qreal begin = found.empty() && left < metrics::compositionRadius ? 0.0 : left;
        const qreal gap = begin > 0 ? std::min(metrics::compositionGap, right - begin - 0.5) : 0.0;
        found.push_back(
            {{begin + gap, 0, right - begin - gap, metrics::compositionHeight}, part.color});
    }
    return found;
}

std::vector<QRectF> CompositionBar::segments(qreal length) const {
    std::vector<QRectF> found;
    for (const Segment& segment : layOut(length)) found.push_back(segment.rect);
    return found;
}

void CompositionBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bar(0, (height() - metrics::compositionHeight) / 2.0, width(),
                     metrics::compositionHeight);
    QPainterPath shape;
    shape.addRoundedRect(bar, metrics::compositionRadius, metrics::compositionRadius);
    const std::vector<Segment> parts = layOut(width());
    if (parts.empty()) painter.fillPath(shape, color(ColorToken::track));
    for (const Segment& part : parts) {
        QRectF rect = part.rect.translated(0, bar.top());
        if (layoutDirection() == Qt::RightToLeft) rect.moveRight(width() - part.rect.left());
        QPainterPath piece;
        piece.addRect(rect);
        painter.fillPath(shape.intersected(piece), color(part.color));
    }
}

}  // namespace vtx
