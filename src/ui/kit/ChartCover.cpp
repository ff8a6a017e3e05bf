// SPDX-License-Identifier: MIT
#include "ui/kit/ChartCover.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vtx {

namespace {

constexpr int opaque = 255;

QRgb laidOver(QRgb under, QRgb color, int alpha) {
    const int rest = opaque - alpha;
    const auto channel = [alpha, rest](int over, int below) {
        const int sum = over * alpha + below * rest + opaque / 2;
        return (sum + 1 + (sum >> 8)) >> 8;  // what a division by 255 gives
    };
    return qRgba(channel(qRed(color), qRed(under)), channel(qGreen(color), qGreen(under)),
                 channel(qBlue(color), qBlue(under)), channel(opaque, qAlpha(under)));
}

/// One column of a picture while a colour is laid over it.
class Column {
public:
    Column(QRgb color, std::span<const float> opacity)
        : color_(color), steps_(opacity.size() + 2), full_(opacity.begin(), opacity.end()) {
        for (float& row : full_) row *= opaque;
        for (int alpha = 0; alpha <= opaque; ++alpha)
            shades_[static_cast<std::size_t>(alpha)] = laidOver(0, color, alpha);
    }

    void cover(float top, float bottom) {
        constexpr float weight = 1.0F / ChartCover::fineness;
        step(top, weight);
        step(bottom, -weight);
    }

    /// Lays what was covered over the pixels that stand `stride` apart, and begins anew.
    void blend(QRgb* pixels, std::ptrdiff_t stride) {
        const std::size_t last = std::min(last_ + 1, full_.size());
        QRgb* pixel = pixels + static_cast<std::ptrdiff_t>(first_) * stride;
        float share = 0;
        for (std::size_t row = first_; row < last; ++row, pixel += stride) {
            share += std::exchange(steps_[row], 0.0F);
            const int alpha = static_cast<int>(std::min(share, 1.0F) * full_[row] + 0.5F);
            if (alpha <= 0) continue;
            // Most of a chart is drawn on nothing, or hides what is below it.
            const bool isShade = *pixel == 0 || alpha == opaque;
            *pixel = isShade ? shades_[static_cast<std::size_t>(alpha)]
                             : laidOver(*pixel, color_, alpha);
        }
        for (std::size_t row = last; row <= last_; ++row) steps_[row] = 0;
        first_ = steps_.size();
        last_ = 0;
    }

private:
    /// From `y` down the share is so much greater.
    void step(float y, float by) {
        const auto row = static_cast<std::size_t>(y);
        const float below = y - static_cast<float>(row);
        steps_[row] += by * (1.0F - below);
        steps_[row + 1] += by * below;
        first_ = std::min(first_, row);
        last_ = std::max(last_, row + 1);
    }

    QRgb color_;
    /// How much the share changes from the row above, and the rows where it does.
    std::vector<float> steps_;
    std::size_t first_ = static_cast<std::size_t>(-1);
    std::size_t last_ = 0;
    /// What covers a whole pixel, for each row, and the colour so opaque on nothing.
    std::vector<float> full_;
    std::array<QRgb, opaque + 1> shades_{};
};

}  // namespace

ChartCover::ChartCover(int width, int height, std::size_t strips) : width_(width), height_(height) {
    strips_.reserve(strips);
}

void ChartCover::add(int fineColumn, double top, double bottom) {
    if (fineColumn < 0 || fineColumn >= width_ * fineness) return;
    top = std::clamp(top, 0.0, static_cast<double>(height_));
    bottom = std::clamp(bottom, 0.0, static_cast<double>(height_));
    if (bottom > top)
        strips_.push_back(
            {fineColumn / fineness, static_cast<float>(top), static_cast<float>(bottom)});
}

void ChartCover::blend(QImage& picture, QRgb color, std::span<const float> opacity) {
    // A run that goes back in time begins to the left of where the one before ended.
    if (!std::ranges::is_sorted(strips_, {}, &Strip::column))
        std::ranges::sort(strips_, {}, &Strip::column);
    auto* const pixels = reinterpret_cast<QRgb*>(picture.bits());
    const auto stride =
        static_cast<std::ptrdiff_t>(picture.bytesPerLine() / qsizetype{sizeof(QRgb)});
    Column column(color, opacity);
    for (std::size_t i = 0; i < strips_.size();) {
        const int x = strips_[i].column;
        for (; i < strips_.size() && strips_[i].column == x; ++i)
            column.cover(strips_[i].top, strips_[i].bottom);
        column.blend(pixels + x, stride);
    }
}

}  // namespace vtx
