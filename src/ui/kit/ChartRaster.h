// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRgb>

#include "ui/kit/ChartTrace.h"

/// Draws the marks of a chart straight into its picture, by columns: of all the points that share
/// one, however many, it draws the lowest to the highest, which is what drawing every mark over
/// one another gives, at the cost of one. Any thread.
namespace vtx::chartRaster {

/// The marks of a shape: an area stands under its line.
void drawMarks(QImage& picture, const ChartTrace& trace, const ChartFrame& frame, ChartShape shape,
               QRgb color);

}  // namespace vtx::chartRaster
