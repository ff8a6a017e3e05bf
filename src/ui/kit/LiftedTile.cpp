// SPDX-License-Identifier: MIT
#include "ui/kit/LiftedTile.h"

#include <QPainter>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Theme.h"
#include "ui/kit/TileRow.h"

namespace vtx {

namespace {
/// Around the row, for its shadow.
constexpr int shadow = 10;
constexpr int shadowDrop = 4;
constexpr float shadowOpacity = 0.035F;
}  // namespace

LiftedTile::LiftedTile(TileRow& row)
    : QWidget(row.window()), picture_(row.size() * row.devicePixelRatioF()) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    picture_.setDevicePixelRatio(row.devicePixelRatioF());
    picture_.fill(Qt::transparent);
    row.render(&picture_, {}, {}, QWidget::DrawChildren);
    resize(row.size() + QSize(2 * shadow, 2 * shadow));
}

void LiftedTile::moveTo(QPoint rowTopLeft) {
    const int aside = layoutDirection() == Qt::LeftToRight ? metrics::tileLift : -metrics::tileLift;
    move(rowTopLeft - QPoint(shadow - aside, shadow));
}

void LiftedTile::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::current();
    const QRect body = rect().adjusted(shadow, shadow, -shadow, -shadow);
    // Many faint ones over each other fade outwards.
    for (int reach = shadow - shadowDrop; reach > 0; --reach)
        paint::fillRounded(painter,
                           body.adjusted(-reach, -reach, reach, reach).translated(0, shadowDrop),
                           metrics::radiusTile + reach, withOpacity(Qt::black, shadowOpacity));
    paint::fillRounded(painter, body, metrics::radiusTile, theme.color(ColorToken::raised));
    paint::outline(painter, body, metrics::radiusTile, theme.color(ColorToken::borderStrong),
                   paint::hairline(painter));
    painter.drawPixmap(body.topLeft(), picture_);
}

}  // namespace vtx
