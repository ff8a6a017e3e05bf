// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRect>
#include <QString>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace vtx {

/// The edge of a screen on which the strip is docked; none while it floats.
enum class DockEdge { none, top, bottom, left, right };

/// A screen as the window system has it. Of a list of screens the first is the primary one.
struct ShellScreen {
    QString name;
    /// Logical pixels. Its top left corner is the same in device pixels.
    QRect geometry;
    /// Device pixels in a logical one.
    double scale = 1;
    /// Logical pixels that the panels of other programs take at each side.
    QMargins panels;

    [[nodiscard]] QRect work() const { return geometry.marginsRemoved(panels); }
    /// A rectangle of the desktop on this screen, in device pixels, rounded outwards.
    [[nodiscard]] QRect toDevice(const QRect& logical) const;
};

/// The twelve numbers of _NET_WM_STRUT_PARTIAL, in device pixels of the whole desktop: left, right,
/// top, bottom, then first and last of left (y), right (y), top (x) and bottom (x).
using Strut = std::array<std::uint32_t, 12>;

/// Where the user has put the strip: distances that still mean something when its width, or the
/// size of the screen, is another one.
struct StripRecord {
    enum class Side { left, right };

    QString screen;
    DockEdge edge = DockEdge::top;
    /// The side that stays where it is while the width changes.
    Side side = Side::right;
    /// Logical pixels from that side of the screen to that side of the strip.
    int gap = 0;
    /// Logical pixels from the top of the screen; without meaning on the top and bottom edges.
    int top = 0;

    friend bool operator==(const StripRecord&, const StripRecord&) = default;
};

/// Where the strip is to be now.
struct StripPlace {
    std::size_t screen = 0;
    QRect frame;
    DockEdge edge = DockEdge::none;
    /// The sides that lie against the screen's edge or a panel; no corner there is rounded.
    Qt::Edges touching;

    friend bool operator==(const StripPlace&, const StripPlace&) = default;
};

/// The decisions about the place of the strip, as pure functions. `screens` is never empty.
namespace StripPlacement {

using Screens = std::vector<ShellScreen>;

/// How near to an edge a strip is dropped for it to dock there, in logical pixels.
inline constexpr int snapDistance = 12;

/// Top right of the primary screen, clear of panels.
[[nodiscard]] StripRecord initial(const Screens& screens);

/// The place for a strip of that size, always wholly in view if it fits. A screen that is not there
/// now is stood in for by the primary one.
[[nodiscard]] StripPlace place(const StripRecord& record, QSize size, const Screens& screens);

/// A place for the time of a drag: nothing is touched.
[[nodiscard]] StripPlace dragged(const QRect& frame, const Screens& screens);

/// What to remember after the strip was let go at `frame` with the pointer at `pointer`.
[[nodiscard]] StripRecord drop(const QRect& frame, QPoint pointer, const Screens& screens);

/// What to reserve: absent where the strip floats or stands on a side edge, and where another
/// screen adjoins the edge, since a reservation is counted from the edge of the whole desktop.
[[nodiscard]] std::optional<Strut> strut(const StripPlace& place, const Screens& screens);

/// The logical pixels that reservations of others take of a screen.
[[nodiscard]] QMargins panels(const ShellScreen& screen, const std::vector<Strut>& others,
                              const Screens& screens);

}  // namespace StripPlacement

}  // namespace vtx
