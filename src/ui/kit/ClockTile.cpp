// SPDX-License-Identifier: MIT
#include "ui/kit/ClockTile.h"

#include <QPainter>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Type.h"

namespace vtx {

ClockTile::ClockTile(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ClockTile::setTexts(const QString& clock, const QString& limit) {
    if (clock_ == clock && limit_ == limit) return;
    clock_ = clock;
    limit_ = limit;
    update();
    accessibility::announceValue(*this, 0);
}

QSize ClockTile::sizeHint() const { return {metrics::cardContentWidth, metrics::tileHeight}; }

QSize ClockTile::minimumSizeHint() const { return {2 * metrics::tilePadding, metrics::tileHeight}; }

AccessiblePart ClockTile::part(int) const {
    return {.name = clock_, .value = limit_, .role = QAccessible::StaticText};
}

void ClockTile::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint::fillRounded(painter, rect(), metrics::radiusTile, color(ColorToken::hover));
    const QRect inner = rect().adjusted(metrics::tilePadding, 0, -metrics::tilePadding, 0);
    const int clock = static_cast<int>(std::ceil(tabularWidth(clock_, TextRole::clock)));
    painter.setPen(color(ColorToken::text1));
    drawValue(painter, inner, clock_, TextRole::clock, atStart());
    painter.setPen(color(ColorToken::text3));
    drawValue(painter, mirrored(inner.adjusted(clock + metrics::labelToValue, 0, 0, 0)), limit_,
              TextRole::caption, atEnd());
}

}  // namespace vtx
