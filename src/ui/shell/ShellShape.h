// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPen>
#include <QRegion>

class QPainter;
class QWidget;

namespace vtx {

class WindowSystem;

/// Outlines of windows that have no frame of the desktop's.
namespace ShellShape {

/// A rectangle whose corners are rounded, but for those on a side that touches something.
[[nodiscard]] QPainterPath rounded(const QRectF& rect, Qt::Edges touching, double radius);

/// The outline's pen: half a logical pixel, and no less than a device pixel.
[[nodiscard]] QPen outline(const QColor& color, double scale);

/// Cuts the window out along the path, given in its own coordinates, where the window system shows
/// no translucency.
void cut(QWidget& window, const QPainterPath& path, WindowSystem& system);

/// Draws a body with its outline. In a window that was cut out the pixels along the cut are filled
/// first, since nothing shines through those that the outline covers in part.
void paint(QPainter& painter, const QWidget& widget, const QPainterPath& body, const QPen& pen,
           const QColor& fill);

}  // namespace ShellShape

}  // namespace vtx
