// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QRect>

#include "ui/shell/StripPlacement.h"

namespace vtx {

/// Where a window with an arrow stands beside what it belongs to.
struct AnchoredPlace {
    /// The side of the window on which the arrow is, towards its anchor.
    enum class Arrow { top, bottom, left, right };

    /// The whole window, the arrow's strip included, on the desktop.
    QRect window;
    /// The part for the content, in the window's coordinates.
    QRect content;
    Arrow arrow = Arrow::top;
    /// Where along that side the arrow's tip is, in the window's coordinates.
    int tip = 0;

    /// The outline in the window's coordinates, `inset` logical pixels within it.
    [[nodiscard]] QPainterPath outline(double inset) const;

    friend bool operator==(const AnchoredPlace&, const AnchoredPlace&) = default;
};

/// The geometry of a window with an arrow, as a pure function.
namespace AnchorPlacement {

/// Opens away from the edge where the anchor is docked; beside a floating one where there is room,
/// below first. The window keeps its distance from the edges of `screen` (the part free of panels)
/// as long as the tip can still point at the anchor's middle, and is smaller where there is less
/// room than it wants.
[[nodiscard]] AnchoredPlace place(const QRect& anchor, DockEdge docked, QSize content,
                                  const QRect& screen);

}  // namespace AnchorPlacement

}  // namespace vtx
