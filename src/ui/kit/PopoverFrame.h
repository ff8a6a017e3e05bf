// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QRect>
#include <QSize>

class QPainter;

namespace vtx {

/// The edge of the popover that its arrow stands on.
enum class ArrowEdge : quint8 { top, bottom };

/// The shape of a popover's window: a rounded body with an arrow on one edge. A plain value in
/// the window's own coordinates.
struct PopoverFrame {
    QSize body;
    ArrowEdge edge = ArrowEdge::top;
    /// From the window's left edge to the tip.
    int tipX = 0;

    bool operator==(const PopoverFrame&) const = default;

    [[nodiscard]] QSize windowSize() const;
    /// Where contents may stand.
    [[nodiscard]] QRect bodyRect() const;
    /// The outline, `inset` within the window's edges; 0 for the mask of the window.
    [[nodiscard]] QPainterPath outline(qreal inset = 0) const;
    /// Fills the shape and draws its outline.
    void paint(QPainter& painter) const;
};

}  // namespace vtx
