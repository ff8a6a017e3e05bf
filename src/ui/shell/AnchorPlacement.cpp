// SPDX-License-Identifier: MIT
#include "ui/shell/AnchorPlacement.h"

#include <QTransform>
#include <algorithm>

#include "ui/kit/Metrics.h"
#include "ui/kit/PopoverFrame.h"

namespace vtx {

namespace {

using Arrow = AnchoredPlace::Arrow;

/// Between the arrow's tip and the anchor.
constexpr int gap = 2;
constexpr int screenMargin = metrics::popoverScreenMargin;
/// What lies between anchor and content, and between content and the screen's other edge.
constexpr int around = gap + metrics::popoverArrowHeight + screenMargin;
/// From a corner of the window to the nearest place for the tip.
constexpr int tipMargin = metrics::radiusWindow + metrics::popoverArrowWidth / 2;

bool isVertical(Arrow arrow) { return arrow == Arrow::top || arrow == Arrow::bottom; }

/// The free logical pixels of the screen on the side where the window would be.
int room(const QRect& anchor, Arrow arrow, const QRect& screen) {
    switch (arrow) {
        case Arrow::top:
            return screen.bottom() - anchor.bottom() - around;
        case Arrow::bottom:
            return anchor.top() - screen.top() - around;
        case Arrow::left:
            return screen.right() - anchor.right() - around;
        case Arrow::right:
            return anchor.left() - screen.left() - around;
    }
    return 0;
}

Arrow arrowFor(const QRect& anchor, DockEdge docked, QSize content, const QRect& screen) {
    switch (docked) {
        case DockEdge::top:
            return Arrow::top;
        case DockEdge::bottom:
            return Arrow::bottom;
        case DockEdge::left:
            return Arrow::left;
        case DockEdge::right:
            return Arrow::right;
        case DockEdge::none:
            break;
    }
    const auto fits = [&](Arrow arrow) {
        const int needed = isVertical(arrow) ? content.height() : content.width();
        return room(anchor, arrow, screen) >= needed;
    };
    for (const Arrow arrow : {Arrow::top, Arrow::bottom, Arrow::left, Arrow::right})
        if (fits(arrow)) return arrow;
    const bool below = room(anchor, Arrow::top, screen) >= room(anchor, Arrow::bottom, screen);
    return below ? Arrow::top : Arrow::bottom;
}

struct Span {
    int start, tip;
};

/// A span of `length` around `middle` within [first, end).
Span spanAround(int middle, int length, int first, int end) {
    const auto limit = [](int value, int least, int most) {
        return std::max(least, std::min(value, most));
    };
    const auto tipOf = [&](int start) {
        return limit(middle - start, tipMargin, length - tipMargin);
    };
    int start = limit(middle - length / 2, first + screenMargin, end - screenMargin - length);
    // Nearer to the edge only where the tip would otherwise miss the middle.
    start = limit(start + middle - start - tipOf(start), first, end - length);
    return {start, tipOf(start)};
}

}  // namespace

namespace AnchorPlacement {

AnchoredPlace place(const QRect& anchor, DockEdge docked, QSize content, const QRect& screen) {
    AnchoredPlace place;
    place.arrow = arrowFor(anchor, docked, content, screen);
    const bool vertical = isVertical(place.arrow);
    const int free = std::max(1, room(anchor, place.arrow, screen));
    const QSize most = vertical ? QSize(screen.width(), free) : QSize(free, screen.height());
    const QSize body = content.boundedTo(
        most - (vertical ? QSize(2 * screenMargin, 0) : QSize(0, 2 * screenMargin)));
    constexpr int depth = metrics::popoverArrowHeight;
    const QSize size = body + (vertical ? QSize(0, depth) : QSize(depth, 0));

    const QPoint middle = anchor.center();
    const Span x = spanAround(middle.x(), size.width(), screen.left(), screen.right() + 1);
    const Span y = spanAround(middle.y(), size.height(), screen.top(), screen.bottom() + 1);
    QPoint at(x.start, y.start);
    if (place.arrow == Arrow::top) at.setY(anchor.bottom() + 1 + gap);
    if (place.arrow == Arrow::bottom) at.setY(anchor.top() - gap - size.height());
    if (place.arrow == Arrow::left) at.setX(anchor.right() + 1 + gap);
    if (place.arrow == Arrow::right) at.setX(anchor.left() - gap - size.width());

    place.window = QRect(at, size);
    place.content =
        QRect(QPoint(place.arrow == Arrow::left ? depth : 0, place.arrow == Arrow::top ? depth : 0),
              body);
    place.tip = vertical ? x.tip : y.tip;
    return place;
}

}  // namespace AnchorPlacement

QPainterPath AnchoredPlace::outline(double inset) const {
    const bool vertical = isVertical(arrow);
    PopoverFrame frame;
    frame.body = vertical ? content.size() : content.size().transposed();
    frame.edge = arrow == Arrow::bottom ? ArrowEdge::bottom : ArrowEdge::top;
    frame.tipX = tip;
    const QPainterPath path = frame.outline(inset);
    // A frame with its arrow on top, turned so that what was down points right, or left.
    if (arrow == Arrow::left) return QTransform(0, 1, 1, 0, 0, 0).map(path);
    if (arrow == Arrow::right) return QTransform(0, 1, -1, 0, window.width(), 0).map(path);
    return path;
}

}  // namespace vtx
