// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

/// The light knob of switches and sliders, the same in both appearances, with a little shadow.
namespace vtx::knob {

/// An invalid outline colour stands for the usual one.
void paint(QPainter& painter, const QRectF& rect, QColor outline);

}  // namespace vtx::knob
