// SPDX-License-Identifier: MIT
#include "ui/kit/Knob.h"

#include <QPainter>

#include "ui/kit/Paint.h"
#include "ui/kit/Theme.h"

namespace vtx::knob {

namespace {
// White is light enough for both grounds; the shadow parts it from light ones.
constexpr QRgb light = 0xFFFFFFFF;
constexpr float shadowOpacity = 0.22F;
constexpr double shadowDepth = 1;
constexpr double shadowReach = 0.5;
}  // namespace

void paint(QPainter& painter, const QRectF& rect, QColor outline) {
    const double radius = rect.height() / 2;
    const QRectF below = rect.adjusted(-shadowReach, 0, shadowReach, shadowDepth);
    paint::fillRounded(painter, below, radius + shadowReach, withOpacity(Qt::black, shadowOpacity));
    paint::fillRounded(painter, rect, radius, QColor::fromRgba(light));
    const QColor edge =
        outline.isValid() ? outline : Theme::current().color(ColorToken::cardBorder);
    paint::outline(painter, rect, radius, edge, paint::hairline(painter));
}

}  // namespace vtx::knob
