// SPDX-License-Identifier: MIT
#include "ui/shell/FloatingPlacement.h"

#include <algorithm>
#include <cmath>

namespace vtx::FloatingPlacement {
namespace {

/// Beyond any desktop, and safe to add to.
constexpr double farthest = 1e6;

bool isReachable(const QRect& frame, const Screens& screens) {
    return std::ranges::any_of(screens, [&frame](const ShellScreen& screen) {
        const QRect seen = frame & screen.geometry;
        return seen.width() >= std::min(leastInView, frame.width()) &&
               seen.height() >= std::min(leastInView, frame.height());
    });
}

int clamp(int at, int first, int length, int room) {
    return std::max(first, std::min(at, first + room - length));
}

QPoint within(const QRect& area, const QRect& frame) {
    return {clamp(frame.x(), area.x(), frame.width(), area.width()),
            clamp(frame.y(), area.y(), frame.height(), area.height())};
}

}  // namespace

std::optional<QPoint> saved(double x, double y) {
    if (!(x >= 0 && y >= 0)) return std::nullopt;
    const auto whole = [](double at) {
        return static_cast<int>(std::round(std::min(at, farthest)));
    };
    return QPoint(whole(x), whole(y));
}

std::optional<QPoint> place(std::optional<QPoint> saved, QSize size, const Screens& screens) {
    if (screens.empty()) return std::nullopt;
    if (saved) return inView(QRect(*saved, size), screens);
    const QRect free = screens.front().work();
    return QPoint(free.x() + free.width() - size.width() - cornerRight, free.y() + cornerTop);
}

QPoint inView(const QRect& frame, const Screens& screens) {
    if (isReachable(frame, screens)) return frame.topLeft();
    const auto moved = [&frame](const ShellScreen& screen) {
        return (within(screen.work(), frame) - frame.topLeft()).manhattanLength();
    };
    return within(std::ranges::min_element(screens, {}, moved)->work(), frame);
}

}  // namespace vtx::FloatingPlacement
