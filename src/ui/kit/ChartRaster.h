// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRgb>
#include <vector>

#include "ui/kit/ChartTrace.h"

/// Draws the marks of a chart straight into its picture, by columns: of all the points that share
/// one, however many, it draws the lowest to the highest, which is what drawing every mark over
/// one another gives, at the cost of one. Any thread.
namespace vtx::chartRaster {

/// The share of each pixel that one colour takes, gathered from strips that stand on one another
/// in fine columns.
class Cover {
public:
    /// Fine columns in a pixel.
    static constexpr int fineness = 8;

    Cover(int width, int height);

    /// Covers a fine column between two heights.
    void add(int fineColumn, double top, double bottom);

    /// Lays the colour over the picture; `opacity` holds one value for each row, 0 to 1.
    void blend(QImage& picture, QRgb color, const std::vector<float>& opacity) const;

private:
    int width_;
    int height_;
    /// How much the share changes from the row above.
    std::vector<float> steps_;
};

/// The line through each run, with round joins and ends.
void drawLine(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, QRgb color);

/// What is below the line, fading towards the lower edge of the scale.
void drawArea(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, QRgb color);

/// A bar for each point. Where they are narrower than a pixel, each takes the pixels it touches.
void drawBars(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, QRgb color);

/// The marks of a shape: an area stands under its line.
void drawMarks(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, ChartShape shape,
               QRgb color);

}  // namespace vtx::chartRaster
