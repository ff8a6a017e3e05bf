// SPDX-License-Identifier: MIT
#include "ui/kit/ChartTrace.h"

#include <algorithm>
#include <cmath>

namespace vtx {

namespace {

/// The usual time between two points, and never more than what is a gap.
double usualSpacing(std::span<const ChartPoint> points) {
    std::vector<double> spacings;
    spacings.reserve(points.size());
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double spacing = points[i].seconds - points[i - 1].seconds;
        if (spacing > 0) spacings.push_back(spacing);
    }
    if (spacings.empty()) return 0;
    const auto middle = spacings.begin() + static_cast<std::ptrdiff_t>((spacings.size() - 1) / 2);
    std::nth_element(spacings.begin(), middle, spacings.end());
    return std::min(*middle, ChartTrace::gapSeconds);
}

/// Seconds and values to places.
class Mapping {
public:
    // Bars stand before their moment, so that the first one needs room to the left of the window.
    Mapping(const ChartFrame& frame, double spacing)
        : frame_(frame), span_(frame.windowSeconds + spacing) {}

    [[nodiscard]] bool shows(const ChartPoint& point) const {
        const double age = frame_.endSeconds - point.seconds;
        return std::isfinite(point.value) && span_ > 0 && age >= 0 && age <= frame_.windowSeconds;
    }
    [[nodiscard]] ChartPlace place(const ChartPoint& point) const {
        const double age = frame_.endSeconds - point.seconds;
        return {frame_.width * (1 - age / span_), height(point.value)};
    }
    [[nodiscard]] double width(double seconds) const { return frame_.width * seconds / span_; }

private:
    [[nodiscard]] double height(double value) const {
        const double range = frame_.upper - frame_.lower;
        if (!(range > 0) || !std::isfinite(range)) return frame_.bottom;
        const double part = std::clamp((value - frame_.lower) / range, 0.0, 1.0);
        return frame_.bottom + (frame_.top - frame_.bottom) * part;
    }

    const ChartFrame& frame_;
    double span_;
};

}  // namespace

ChartTrace ChartTrace::of(std::span<const ChartPoint> points, const ChartFrame& frame,
                          ChartShape shape) {
    const double spacing = shape == ChartShape::bar ? usualSpacing(points) : 0;
    const Mapping mapping(frame, spacing);
    ChartTrace trace;
    trace.slot = mapping.width(spacing);
    trace.places.reserve(points.size());
    const ChartPoint* before = nullptr;
    const ChartPoint* peak = nullptr;
    for (const ChartPoint& point : points) {
        if (!mapping.shows(point)) continue;
        const double spacingHere = before ? point.seconds - before->seconds : 0;
        if (spacingHere < 0 || spacingHere > gapSeconds)
            trace.runEnds.push_back(trace.places.size());
        trace.places.push_back(mapping.place(point));
        before = &point;
        if (!peak || point.value > peak->value) peak = &point;
    }
    if (!trace.places.empty()) trace.runEnds.push_back(trace.places.size());
    if (peak) {
        trace.peak = mapping.place(*peak);
        if (trace.places.size() > 1) trace.peak->x -= trace.slot / 2;
    }
    return trace;
}

}  // namespace vtx
