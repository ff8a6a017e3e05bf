// SPDX-License-Identifier: MIT
#include "ui/shell/ShellShape.h"

#include <QPainter>
#include <QVariant>
#include <QWidget>
#include <algorithm>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/shell/WindowSystem.h"

namespace vtx::ShellShape {

QPainterPath rounded(const QRectF& rect, Qt::Edges touching, double radius) {
    const double r = std::min({radius, rect.width() / 2, rect.height() / 2});
    const auto corner = [touching, r](Qt::Edges sides) { return (touching & sides) ? 0.0 : r; };
    const double topLeft = corner(Qt::TopEdge | Qt::LeftEdge);
    const double topRight = corner(Qt::TopEdge | Qt::RightEdge);
    const double bottomRight = corner(Qt::BottomEdge | Qt::RightEdge);
    const double bottomLeft = corner(Qt::BottomEdge | Qt::LeftEdge);

    QPainterPath path(QPointF(rect.left() + topLeft, rect.top()));
    const auto turn = [&path](QPointF at, double size, double from) {
        if (size <= 0) return path.lineTo(at);
        const QPointF centre(from == 90 || from == 0 ? at.x() - size : at.x() + size,
                             from == 90 || from == 180 ? at.y() + size : at.y() - size);
        path.arcTo(QRectF(centre.x() - size, centre.y() - size, 2 * size, 2 * size), from, -90);
    };
    turn(rect.topRight(), topRight, 90);
    turn(rect.bottomRight(), bottomRight, 0);
    turn(rect.bottomLeft(), bottomLeft, 270);
    turn(rect.topLeft(), topLeft, 180);
    path.closeSubpath();
    return path;
}

QPen outline(const QColor& color, double scale) {
    return {color, std::max(metrics::strokeOutline, 1 / scale)};
}

void cut(QWidget& window, const QPainterPath& path, WindowSystem& system) {
    const bool isCut = !system.blendsWindows();
    window.setProperty(paint::cutOutProperty, isCut);
    if (isCut)
        system.cutOut(window, path);
    else
        window.clearMask();
}

void paint(QPainter& painter, const QWidget& widget, const QPainterPath& body, const QPen& pen,
           const QColor& fill) {
    if (widget.window()->property(paint::cutOutProperty).toBool()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.fillRect(body.boundingRect().adjusted(-1, -1, 1, 1), fill);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setBrush(fill);
    painter.drawPath(body);
}

}  // namespace vtx::ShellShape
