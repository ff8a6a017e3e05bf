// SPDX-License-Identifier: MIT
#include "ui/surfaces/TrayPicture.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"
#include "ui/models/TrayModel.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

constexpr int side = 22;
constexpr qreal groundRadius = 5.0;
constexpr int symbolOverFigure = 11;
constexpr int symbolAlone = 16;

// In the lower half; a long figure is drawn smaller, since a number is never cut.
void drawFigure(QPainter& painter, const QString& figure) {
    const qreal room = side - 2.0, wanted = tabularWidth(figure, TextRole::tray);
    const qreal shrunk = std::min(1.0, room / std::max(wanted, 1.0));
    painter.translate(side / 2.0, (symbolOverFigure + side) / 2.0);
    painter.scale(shrunk, shrunk);
    drawTabular(painter, QRectF(-side, -side / 4.0, 2.0 * side, side / 2.0), figure, TextRole::tray,
                Qt::AlignCenter);
}

}  // namespace

QImage trayPicture(const TrayModel& model, Appearance appearance, qreal scale) {
    const int pixels = static_cast<int>(std::lround(side * scale));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokenColor(ColorToken::window, appearance));
    painter.drawRoundedRect(QRectF(0, 0, side, side), groundRadius, groundRadius);

    const QColor color = tokenColor(ColorToken::text1, appearance);
    const QString symbol = qt(model.symbol);
    if (model.figure.empty()) {
        symbols::draw(painter, QRectF(0, 0, side, side), symbol, symbolAlone, color);
        return image;
    }
    symbols::draw(painter, QRectF(0, 1, side, symbolOverFigure), symbol, symbolOverFigure, color);
    painter.setPen(color);
    drawFigure(painter, qt(model.figure));
    return image;
}

std::vector<QImage> trayPictures(const TrayModel& model, Appearance appearance) {
    std::vector<QImage> pictures;
    for (const qreal scale : {1.0, 1.5, 2.0, 3.0})
        pictures.push_back(trayPicture(model, appearance, scale));
    return pictures;
}

}  // namespace vtx
