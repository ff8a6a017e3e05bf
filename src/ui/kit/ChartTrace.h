// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace vtx {

/// One value of a history. Seconds count from anywhere, the same for all of a chart.
struct ChartPoint {
    double seconds = 0;
    double value = 0;

    bool operator==(const ChartPoint&) const = default;
};

/// How a series is drawn.
enum class ChartShape : quint8 { line, area, bar };

/// Where a plot stands in its picture, and what it shows. Lengths in device pixels.
struct ChartFrame {
    int width = 0;
    int height = 0;
    /// The heights of `upper` and of `lower`, from the top of the picture.
    double top = 0;
    double bottom = 0;
    double upper = 1;
    double lower = 0;
    /// The moment at the right edge, and how much of the time before it is shown.
    double endSeconds = 0;
    double windowSeconds = 60;
    double pixelsPerUnit = 1;  ///< of the screen: 2 where a logical pixel is two wide
};

/// A place in the picture.
struct ChartPlace {
    double x = 0;
    double y = 0;
};

/// The points of a series as places, in runs that belong together. Two neighbours belong together
/// unless more than `gapSeconds` lie between them, or the later one is earlier in time. What is not
/// finite, or lies outside the window, has no place; a value off the scale is at its edge.
struct ChartTrace {
    /// Longer than two of the longest intervals in which readings are taken, so that one that came
    /// late is no gap.
    static constexpr double gapSeconds = 5;

    std::vector<ChartPlace> places;
    /// One past the last place of each run.
    std::vector<std::size_t> runEnds;
    /// The first of the largest values.
    std::optional<ChartPlace> peak;
    /// Bars only: the room of one, which ends at its place.
    double slot = 0;

    [[nodiscard]] static ChartTrace of(std::span<const ChartPoint> points, const ChartFrame& frame,
                                       ChartShape shape);
};

}  // namespace vtx
