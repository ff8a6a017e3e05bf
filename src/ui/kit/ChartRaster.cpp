// SPDX-License-Identifier: MIT
#include "ui/kit/ChartRaster.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "ui/kit/ChartCover.h"
#include "ui/kit/Metrics.h"

namespace vtx::chartRaster {

namespace {

constexpr int fineness = ChartCover::fineness;

/// The lowest and the highest that a run is in each fine column.
struct Envelope {
    int first = 0;
    std::vector<double> top;
    std::vector<double> bottom;

    void include(int column, double y) {
        const auto at = static_cast<std::size_t>(column - first);
        top[at] = std::min(top[at], y);
        bottom[at] = std::max(bottom[at], y);
    }
};

int fineColumn(double x) { return static_cast<int>(std::floor(x * fineness)); }

using Run = std::span<const ChartPlace>;

Envelope envelopeOf(Run run) {
    Envelope envelope;
    envelope.first = fineColumn(run.front().x);
    const auto count = static_cast<std::size_t>(fineColumn(run.back().x) - envelope.first + 1);
    envelope.top.assign(count, std::numeric_limits<double>::infinity());
    envelope.bottom.assign(count, -std::numeric_limits<double>::infinity());
    const ChartPlace* from = &run.front();
    for (const ChartPlace& to : run) {
        const int last = fineColumn(to.x);
        // Where the line passes from one column to the next, both have that height.
        for (int border = fineColumn(from->x) + 1; border <= last; ++border) {
            const double part =
                (border / static_cast<double>(fineness) - from->x) / (to.x - from->x);
            const double y = from->y + (to.y - from->y) * part;
            envelope.include(border - 1, y);
            envelope.include(border, y);
        }
        envelope.include(last, to.y);
        from = &to;
    }
    return envelope;
}

/// How far a round pen reaches up and down from its middle, by the distance in fine columns.
std::vector<double> penOf(double radius) {
    std::vector<double> reach;
    for (int i = 0; i <= static_cast<int>(radius * fineness); ++i) {
        const double aside = i / static_cast<double>(fineness);
        reach.push_back(std::sqrt(radius * radius - aside * aside));
    }
    return reach;
}

/// Moves the pen along a run: in each column that it touches it covers one piece.
void stroke(ChartCover& cover, const Envelope& envelope, const std::vector<double>& pen,
            int columns) {
    const int reach = static_cast<int>(pen.size()) - 1;
    const int count = static_cast<int>(envelope.top.size());
    const int begin = std::max(0, envelope.first - reach);
    const int end = std::min(columns, envelope.first + count + reach);
    for (int column = begin; column < end; ++column) {
        const int middle = column - envelope.first;
        double top = std::numeric_limits<double>::infinity();
        double bottom = -top;
        const int to = std::min(count - 1, middle + reach);
        for (int i = std::max(0, middle - reach); i <= to; ++i) {
            const double radius = pen[static_cast<std::size_t>(std::abs(i - middle))];
            top = std::min(top, envelope.top[static_cast<std::size_t>(i)] - radius);
            bottom = std::max(bottom, envelope.bottom[static_cast<std::size_t>(i)] + radius);
        }
        cover.add(column, top, bottom);
    }
}

std::vector<Envelope> envelopesOf(const ChartTrace& trace) {
    std::vector<Envelope> envelopes;
    std::size_t begin = 0;
    for (const std::size_t end : trace.runEnds) {
        envelopes.push_back(envelopeOf(Run(trace.places).subspan(begin, end - begin)));
        begin = end;
    }
    return envelopes;
}

/// From the highest place of the trace down to the lower edge.
std::vector<float> fading(const ChartTrace& trace, const ChartFrame& frame) {
    double highest = frame.bottom;
    for (const ChartPlace& place : trace.places) highest = std::min(highest, place.y);
    std::vector<float> opacity;
    for (int row = 0; row < frame.height; ++row) {
        const double part =
            std::clamp((row + 0.5 - highest) / std::max(frame.bottom - highest, 1.0), 0.0, 1.0);
        opacity.push_back(metrics::chartAreaTop +
                          (metrics::chartAreaBottom - metrics::chartAreaTop) *
                              static_cast<float>(part));
    }
    return opacity;
}

/// The top of each fine column that bars stand in; infinite elsewhere.
class Skyline {
public:
    Skyline(const ChartTrace& trace, const ChartFrame& frame)
        : slot_(trace.slot),
          tops_(static_cast<std::size_t>(frame.width * fineness),
                std::numeric_limits<double>::infinity()) {
        const double gap = metrics::chartBarGap * frame.pixelsPerUnit;
        const bool isApart = slot_ >= 2 * gap;
        gap_ = isApart ? gap : 0;
        radius_ = isApart
                      ? std::min(metrics::chartBarRadius * frame.pixelsPerUnit, (slot_ - gap_) / 2)
                      : 0;
    }

    void raise(const ChartPlace& bar) {
        double left = (bar.x - slot_ + gap_) * fineness;
        double right = bar.x * fineness;
        if (slot_ < 1) {
            right = std::ceil(right / fineness) * fineness;
            left = std::min(std::floor(left / fineness) * fineness, right - fineness);
        }
        const int begin = std::max(0, static_cast<int>(std::lround(left)));
        const int end =
            std::min(static_cast<int>(tops_.size()), static_cast<int>(std::lround(right)));
        for (int column = begin; column < end; ++column) {
            const double fromEdge = std::min(column + 0.5 - left, right - column - 0.5) / fineness;
            double& top = tops_[static_cast<std::size_t>(column)];
            top = std::min(top, bar.y + rounding(fromEdge));
        }
    }

    [[nodiscard]] const std::vector<double>& tops() const { return tops_; }

private:
    /// How much lower than its top a bar is near its edge.
    [[nodiscard]] double rounding(double fromEdge) const {
        const double inside = radius_ - std::max(fromEdge, 0.0);
        return inside <= 0 ? 0 : radius_ - std::sqrt(radius_ * radius_ - inside * inside);
    }

    double slot_;
    double gap_ = 0;
    double radius_ = 0;
    std::vector<double> tops_;
};

std::size_t fineColumns(const ChartFrame& frame) {
    return static_cast<std::size_t>(frame.width) * fineness;
}

/// The line through each run, with round joins and ends.
void drawLine(QImage& picture, const std::vector<Envelope>& runs, const ChartFrame& frame,
              QRgb color) {
    ChartCover cover(frame.width, frame.height, fineColumns(frame));
    const auto pen = penOf(metrics::strokeLine / 2 * frame.pixelsPerUnit);
    for (const Envelope& run : runs) stroke(cover, run, pen, frame.width * fineness);
    cover.blend(picture, color, std::vector<float>(static_cast<std::size_t>(frame.height), 1.0F));
}

/// What is below the line, fading towards the lower edge of the scale.
void drawArea(QImage& picture, const std::vector<Envelope>& runs, const ChartTrace& trace,
              const ChartFrame& frame, QRgb color) {
    ChartCover cover(frame.width, frame.height, fineColumns(frame));
    for (const Envelope& run : runs)
        for (std::size_t i = 0; i < run.top.size(); ++i)
            cover.add(run.first + static_cast<int>(i), (run.top[i] + run.bottom[i]) / 2,
                      frame.bottom);
    cover.blend(picture, color, fading(trace, frame));
}

/// A bar for each point. Where they are narrower than a pixel, each takes the pixels it touches.
void drawBars(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, QRgb color) {
    Skyline skyline(trace, frame);
    for (const ChartPlace& bar : trace.places) skyline.raise(bar);
    ChartCover cover(frame.width, frame.height, fineColumns(frame));
    int column = 0;
    for (const double top : skyline.tops()) cover.add(column++, top, frame.bottom);
    cover.blend(
        picture, color,
        std::vector<float>(static_cast<std::size_t>(frame.height), metrics::chartBarOpacity));
}

}  // namespace

void drawMarks(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, ChartShape shape,
               QRgb color) {
    if (trace.places.size() < 2) return;  // the dot on the peak says it all
    if (shape == ChartShape::bar) return drawBars(picture, trace, frame, color);
    const std::vector<Envelope> runs = envelopesOf(trace);
    if (shape == ChartShape::area) drawArea(picture, runs, trace, frame, color);
    drawLine(picture, runs, frame, color);
}

}  // namespace vtx::chartRaster
