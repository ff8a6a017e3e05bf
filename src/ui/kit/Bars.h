// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>
#include <Qt>

class QPainter;

/// The horizontal bars of the kit, by themselves and inside rows: ends rounded by half the height,
/// no fill at 0, never less than 2 above it. They take their new length at once: a bar that moves
/// for a fifth of every second would keep the program drawing for a fifth of its life.
namespace vtx::bars {

/// `value` held between 0 and 1; 0 for what is no number.
[[nodiscard]] double fraction(double value);

/// The length of the fill of a bar of `length`, on whole device pixels of `scale`.
[[nodiscard]] qreal filled(double value, qreal length, qreal scale);

struct Colors {
    QColor track;
    QColor fill;
};

void draw(QPainter& painter, const QRectF& rect, double value, const Colors& colors,
          Qt::LayoutDirection direction);

}  // namespace vtx::bars
