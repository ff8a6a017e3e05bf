// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRgb>
#include <cstddef>
#include <span>
#include <vector>

namespace vtx {

/// The share of each pixel that one colour takes, gathered from strips that stand on one another
/// in fine columns. Lays its colour over a picture column by column: what a column needs is small
/// enough to stay in the processor's nearest cache, however large the picture. Any thread; lives as
/// long as one drawing.
class ChartCover {
public:
    /// Fine columns in a pixel.
    static constexpr int fineness = 8;

    /// Of a picture of that size. As many strips are expected.
    ChartCover(int width, int height, std::size_t strips);

    /// Covers a fine column between two heights. What is outside the picture is left out. The order
    /// is free; from left to right is the fastest.
    void add(int fineColumn, double top, double bottom);

    /// Lays the colour over the picture, which holds premultiplied pixels; `opacity` has one value
    /// for each row, 0 to 1.
    void blend(QImage& picture, QRgb color, std::span<const float> opacity);

private:
    struct Strip {
        int column;  ///< of whole pixels
        float top;
        float bottom;
    };

    int width_;
    int height_;
    std::vector<Strip> strips_;
};

}  // namespace vtx
