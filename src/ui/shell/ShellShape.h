// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPen>
#include <QRegion>

class QWidget;

namespace vtx {

class WindowSystem;

/// Outlines of windows that have no frame of the desktop's.
namespace ShellShape {

/// A rectangle whose corners are rounded, but for those on a side that touches something.
[[nodiscard]] QPainterPath rounded(const QRectF& rect, Qt::Edges touching, double radius);

/// The outline's pen: half a logical pixel, and no less than a device pixel.
[[nodiscard]] QPen outline(const QColor& color, double scale);

/// Cuts the window out along the path where the window system shows no translucency.
void cut(QWidget& window, const QPainterPath& path, const WindowSystem& system);

}  // namespace ShellShape

}  // namespace vtx
