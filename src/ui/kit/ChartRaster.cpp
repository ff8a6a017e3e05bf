// SPDX-License-Identifier: MIT
#include "ui/kit/ChartRaster.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "ui/kit/Metrics.h"

namespace vtx::chartRaster {

namespace {

constexpr int fineness = Cover::fineness;

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
void stroke(Cover& cover, const Envelope& envelope, const std::vector<double>& pen, int columns) {
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

template <class F>
void forEachRun(const ChartTrace& trace, F&& draw) {
    std::size_t begin = 0;
    for (const std::size_t end : trace.runEnds) {
        draw(Run(trace.places).subspan(begin, end - begin));
        begin = end;
    }
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

QRgb laidOver(QRgb under, QRgb color, int alpha) {
    const int rest = 255 - alpha;
    const auto channel = [alpha, rest](int over, int below) {
        return (over * alpha + below * rest + 127) / 255;
    };
    return qRgba(channel(qRed(color), qRed(under)), channel(qGreen(color), qGreen(under)),
                 channel(qBlue(color), qBlue(under)), channel(255, qAlpha(under)));
}

}  // namespace

Cover::Cover(int width, int height)
    : width_(width),
      height_(height),
      steps_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height + 2)) {}

void Cover::add(int fineColumn, double top, double bottom) {
    top = std::clamp(top, 0.0, static_cast<double>(height_));
    bottom = std::clamp(bottom, 0.0, static_cast<double>(height_));
    if (!(bottom > top)) return;
    constexpr float weight = 1.0F / fineness;
    const auto step = [this, fineColumn](double y, float by) {
        const int row = static_cast<int>(y);
        const auto below = static_cast<float>(y - row);
        const auto at = static_cast<std::size_t>(row * width_ + fineColumn / fineness);
        steps_[at] += by * (1.0F - below);
        steps_[at + static_cast<std::size_t>(width_)] += by * below;
    };
    step(top, weight);
    step(bottom, -weight);
}

void Cover::blend(QImage& picture, QRgb color, const std::vector<float>& opacity) const {
    std::vector<float> share(static_cast<std::size_t>(width_), 0.0F);
    const float* step = steps_.data();
    for (int row = 0; row < height_; ++row) {
        auto* pixel = reinterpret_cast<QRgb*>(picture.scanLine(row));
        const float full = opacity[static_cast<std::size_t>(row)] * 255.0F;
        for (float& column : share) {
            column += *step++;
            const int alpha = static_cast<int>(std::min(column, 1.0F) * full + 0.5F);
            if (alpha > 0) *pixel = laidOver(*pixel, color, alpha);
            ++pixel;
        }
    }
}

void drawLine(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, QRgb color) {
    Cover cover(frame.width, frame.height);
    const auto pen = penOf(metrics::strokeLine / 2 * frame.pixelsPerUnit);
    forEachRun(trace,
               [&](Run run) { stroke(cover, envelopeOf(run), pen, frame.width * fineness); });
    cover.blend(picture, color, std::vector<float>(static_cast<std::size_t>(frame.height), 1.0F));
}

void drawArea(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, QRgb color) {
    Cover cover(frame.width, frame.height);
    forEachRun(trace, [&](Run run) {
        const Envelope envelope = envelopeOf(run);
        for (std::size_t i = 0; i < envelope.top.size(); ++i) {
            const int column = envelope.first + static_cast<int>(i);
            if (column < 0 || column >= frame.width * fineness) continue;
            cover.add(column, (envelope.top[i] + envelope.bottom[i]) / 2, frame.bottom);
        }
    });
    cover.blend(picture, color, fading(trace, frame));
}

void drawBars(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, QRgb color) {
    Skyline skyline(trace, frame);
    for (const ChartPlace& bar : trace.places) skyline.raise(bar);
    Cover cover(frame.width, frame.height);
    int column = 0;
    for (const double top : skyline.tops()) cover.add(column++, top, frame.bottom);
    cover.blend(
        picture, color,
        std::vector<float>(static_cast<std::size_t>(frame.height), metrics::chartBarOpacity));
}

void drawMarks(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, ChartShape shape,
               QRgb color) {
    if (trace.places.size() < 2) return;  // the dot on the peak says it all
    if (shape == ChartShape::bar) return drawBars(picture, trace, frame, color);
    if (shape == ChartShape::area) drawArea(picture, trace, frame, color);
    drawLine(picture, trace, frame, color);
}

}  // namespace vtx::chartRaster
