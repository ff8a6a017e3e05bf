// SPDX-License-Identifier: MIT
#include "ui/kit/Bars.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"

namespace vtx::bars {

double fraction(double value) { return std::isnan(value) ? 0.0 : std::clamp(value, 0.0, 1.0); }

qreal filled(double value, qreal length, qreal scale) {
    const double share = fraction(value);
    if (share <= 0 || length <= 0) return 0;
    const qreal exact = std::round(share * length * scale) / scale;
    return std::clamp<qreal>(exact, std::min<qreal>(metrics::barLeast, length), length);
}

void draw(QPainter& painter, const QRectF& rect, double value, const Colors& colors,
          Qt::LayoutDirection direction) {
    const qreal radius = rect.height() / 2;
    paint::fillRounded(painter, rect, radius, colors.track);
    QRectF fill = rect;
    fill.setWidth(filled(value, rect.width(), paint::scaleOf(painter)));
    if (fill.width() <= 0) return;
    if (direction == Qt::RightToLeft) fill.moveRight(rect.right());
    // A fill that is shorter than it is high is the beginning of the bar, not a smaller bar.
    if (fill.width() >= rect.height()) {
        paint::fillRounded(painter, fill, radius, colors.fill);
        return;
    }
    painter.save();
    painter.setClipRect(fill);
    QRectF whole = rect;
    whole.setWidth(std::min(rect.width(), 2 * rect.height()));
    if (direction == Qt::RightToLeft) whole.moveRight(rect.right());
    paint::fillRounded(painter, whole, radius, colors.fill);
    painter.restore();
}

}  // namespace vtx::bars
