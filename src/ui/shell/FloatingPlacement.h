// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QSize>
#include <optional>

#include "ui/shell/StripPlacement.h"

namespace vtx {

/// Where a floating panel stands, as pure functions. Of `screens` the first is the primary one.
namespace FloatingPlacement {

using Screens = StripPlacement::Screens;

/// From the right and the top of the part of the screen that is free, in logical pixels.
inline constexpr int cornerRight = 20;
inline constexpr int cornerTop = 40;

/// At least so much of a panel has to be seen at both sides of it for the user to take hold of it.
inline constexpr int leastInView = 24;

/// The place of a panel: the saved one, brought into view if need be; without one the upper right
/// corner of the primary screen. Absent where there is no screen at all.
[[nodiscard]] std::optional<QPoint> place(std::optional<QPoint> saved, QSize size,
                                          const Screens& screens);

/// The same place if the user can reach it there, else the nearest one wholly on a screen and clear
/// of panels. `screens` is not empty.
[[nodiscard]] QPoint inView(const QRect& frame, const Screens& screens);

/// A saved place: two numbers that are both at least 0; anything else stands for none.
[[nodiscard]] std::optional<QPoint> saved(double x, double y);

}  // namespace FloatingPlacement

}  // namespace vtx
