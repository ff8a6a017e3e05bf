// SPDX-License-Identifier: MIT
#include "ui/shell/StripPlacement.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vtx {

QRect ShellScreen::toDevice(const QRect& logical) const {
    const QPoint origin = geometry.topLeft();
    const auto outer = [this](int from, int to) {
        const int first = static_cast<int>(std::floor(from * scale + 1e-6));
        const int end = static_cast<int>(std::ceil(to * scale - 1e-6));
        return std::pair(first, end - first);
    };
    const QRect at = logical.translated(-origin);
    const auto [x, width] = outer(at.x(), at.x() + at.width());
    const auto [y, height] = outer(at.y(), at.y() + at.height());
    return {origin.x() + x, origin.y() + y, width, height};
}

namespace StripPlacement {

namespace {

QRect device(const ShellScreen& screen) { return screen.toDevice(screen.geometry); }

/// The desktop's bounding box in device pixels; its edges are what struts are counted from.
QRect desktop(const Screens& screens) {
    QRect all(0, 0, 1, 1);
    for (const auto& screen : screens) all |= device(screen);
    return all;
}

/// What a record's distances are counted from: a floating strip may lie over a panel.
QRect area(const ShellScreen& screen, DockEdge edge) {
    return edge == DockEdge::none ? screen.geometry : screen.work();
}

/// The start of a span of `length` within [first, last], nearest to `at`; at the start if it does
/// not fit. Remembered distances may be anything, so sums are made wide.
int clamp(std::int64_t at, int first, int last, int length) {
    const std::int64_t latest = std::int64_t{last} + 1 - length;
    return static_cast<int>(std::max<std::int64_t>(first, std::min(at, latest)));
}

std::size_t indexOf(const QString& name, const Screens& screens) {
    const auto found = std::ranges::find(screens, name, &ShellScreen::name);
    return found == screens.end() ? 0 : static_cast<std::size_t>(found - screens.begin());
}

int distance(const QRect& rect, QPoint point) {
    const int x = std::max({rect.left() - point.x(), 0, point.x() - rect.right()});
    const int y = std::max({rect.top() - point.y(), 0, point.y() - rect.bottom()});
    return x + y;
}

const ShellScreen& nearest(QPoint point, const Screens& screens) {
    return *std::ranges::min_element(
        screens, {}, [point](const ShellScreen& s) { return distance(s.geometry, point); });
}

Qt::Edges touching(const QRect& frame, const ShellScreen& screen) {
    const QRect outer = screen.geometry, inner = screen.work();
    Qt::Edges edges;
    if (frame.left() == outer.left() || frame.left() == inner.left()) edges |= Qt::LeftEdge;
    if (frame.right() == outer.right() || frame.right() == inner.right()) edges |= Qt::RightEdge;
    if (frame.top() == outer.top() || frame.top() == inner.top()) edges |= Qt::TopEdge;
    if (frame.bottom() == outer.bottom() || frame.bottom() == inner.bottom())
        edges |= Qt::BottomEdge;
    return edges;
}

/// Whether a screen lies beyond that edge of the place's screen, over the strip's span.
bool adjoined(const StripPlace& place, const QRect& strip, const Screens& screens) {
    const QRect own = device(screens[place.screen]);
    return std::ranges::any_of(screens, [&](const ShellScreen& other) {
        const QRect at = device(other);
        if (at.right() < strip.left() || at.left() > strip.right()) return false;
        return place.edge == DockEdge::top ? at.top() < own.top() : at.bottom() > own.bottom();
    });
}

DockEdge edgeAt(const QRect& frame, const QRect& work) {
    if (frame.top() <= work.top() + snapDistance) return DockEdge::top;
    if (frame.bottom() >= work.bottom() - snapDistance) return DockEdge::bottom;
    if (frame.left() <= work.left() + snapDistance) return DockEdge::left;
    if (frame.right() >= work.right() - snapDistance) return DockEdge::right;
    return DockEdge::none;
}

int logical(int devicePixels, double scale) {
    return static_cast<int>(std::ceil(devicePixels / scale - 1e-6));
}

}  // namespace

StripRecord initial(const Screens& screens) {
    StripRecord record;
    record.screen = screens.front().name;
    return record;
}

StripPlace place(const StripRecord& record, QSize size, const Screens& screens) {
    StripPlace place;
    place.screen = indexOf(record.screen, screens);
    place.edge = record.edge;
    const ShellScreen& screen = screens[place.screen];
    const QRect in = area(screen, record.edge);
    size.setWidth(std::min(size.width(), in.width()));

    std::int64_t x = record.side == StripRecord::Side::left
                         ? std::int64_t{in.left()} + record.gap
                         : std::int64_t{in.right()} + 1 - record.gap - size.width();
    std::int64_t y = std::int64_t{in.top()} + record.top;
    if (record.edge == DockEdge::top) y = in.top();
    if (record.edge == DockEdge::bottom) y = std::int64_t{in.bottom()} + 1 - size.height();
    if (record.edge == DockEdge::left) x = in.left();
    if (record.edge == DockEdge::right) x = std::int64_t{in.right()} + 1 - size.width();

    place.frame = QRect(QPoint(clamp(x, in.left(), in.right(), size.width()),
                               clamp(y, in.top(), in.bottom(), size.height())),
                        size);
    if (record.edge != DockEdge::none) place.touching = touching(place.frame, screen);
    return place;
}

StripPlace dragged(const QRect& frame, const Screens& screens) {
    StripPlace place;
    place.screen = indexOf(nearest(frame.center(), screens).name, screens);
    place.frame = frame;
    return place;
}

StripRecord drop(const QRect& frame, QPoint pointer, const Screens& screens) {
    const ShellScreen& screen = nearest(pointer, screens);
    StripRecord record;
    record.screen = screen.name;
    record.edge = edgeAt(frame, screen.work());

    const QRect in = area(screen, record.edge);
    const int fromLeft = frame.left() - in.left(), fromRight = in.right() - frame.right();
    const bool atLeft = record.edge != DockEdge::none && fromLeft <= snapDistance;
    const bool atRight = record.edge != DockEdge::none && fromRight <= snapDistance;
    if (atLeft && !atRight) {
        record.side = StripRecord::Side::left;
    } else if (!atRight) {
        record.gap = std::max(0, fromRight);
    }
    if (record.edge != DockEdge::top && record.edge != DockEdge::bottom)
        record.top = std::max(0, frame.top() - in.top());
    return record;
}

std::optional<Strut> strut(const StripPlace& place, const Screens& screens) {
    if (place.edge != DockEdge::top && place.edge != DockEdge::bottom) return std::nullopt;
    const QRect strip = screens[place.screen].toDevice(place.frame);
    const QRect all = desktop(screens);
    if (adjoined(place, strip, screens) || !all.contains(strip)) return std::nullopt;

    const auto number = [](int value) { return static_cast<std::uint32_t>(std::max(0, value)); };
    Strut strut{};
    if (place.edge == DockEdge::top) {
        strut[2] = number(strip.bottom() + 1 - all.top());
        strut[8] = number(strip.left());
        strut[9] = number(strip.right());
    } else {
        strut[3] = number(all.bottom() + 1 - strip.top());
        strut[10] = number(strip.left());
        strut[11] = number(strip.right());
    }
    return strut;
}

QMargins panels(const ShellScreen& screen, const std::vector<Strut>& others,
                const Screens& screens) {
    const QRect all = desktop(screens), own = device(screen);
    const auto overlaps = [](std::uint32_t from, std::uint32_t to, int first, int last) {
        return std::int64_t{from} <= last && std::int64_t{to} >= first;
    };
    // A reservation that reaches beyond the middle of a screen was made for one further in.
    const auto depth = [](std::int64_t taken, int length) {
        return taken > 0 && taken <= length / 2 ? static_cast<int>(taken) : 0;
    };
    QMargins taken;
    for (const Strut& strut : others) {
        const bool beside = overlaps(strut[4], strut[5], own.top(), own.bottom());
        const bool besideRight = overlaps(strut[6], strut[7], own.top(), own.bottom());
        const bool above = overlaps(strut[8], strut[9], own.left(), own.right());
        const bool below = overlaps(strut[10], strut[11], own.left(), own.right());
        const auto reach = [&strut](std::size_t side) { return std::int64_t{strut[side]}; };
        QMargins one;
        if (beside) one.setLeft(depth(reach(0) - own.left() + all.left(), own.width()));
        if (besideRight) one.setRight(depth(reach(1) - all.right() + own.right(), own.width()));
        if (above) one.setTop(depth(reach(2) - own.top() + all.top(), own.height()));
        if (below) one.setBottom(depth(reach(3) - all.bottom() + own.bottom(), own.height()));
        taken = taken | one;
    }
    return {logical(taken.left(), screen.scale), logical(taken.top(), screen.scale),
            logical(taken.right(), screen.scale), logical(taken.bottom(), screen.scale)};
}

}  // namespace StripPlacement

}  // namespace vtx
