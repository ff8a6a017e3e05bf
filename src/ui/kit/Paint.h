// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>
#include <QRegion>

class QPainter;
class QPainterPath;

namespace vtx::paint {

/// A property of windows that are cut out along their outline, where the desktop composes nothing.
inline constexpr auto cutOutProperty = "vantrixCut";

/// The device pixels of one logical pixel of what `painter` draws on.
[[nodiscard]] qreal scaleOf(const QPainter& painter);

/// The width of outlines and separators: half a logical pixel, but never less than one device
/// pixel.
[[nodiscard]] qreal hairline(const QPainter& painter);

void fillRounded(QPainter& painter, const QRectF& rect, qreal radius, QColor color);

/// An outline that lies wholly within `rect`.
void outline(QPainter& painter, const QRectF& rect, qreal radius, QColor color, qreal width);

/// The mark of keyboard focus around a shape, or within it where there is no room outside.
void focusRing(QPainter& painter, const QRectF& shape, qreal radius);
void focusRingInside(QPainter& painter, const QRectF& shape, qreal radius);

/// A hairline whose lower edge is at `bottom`, on whole device pixels.
void separator(QPainter& painter, qreal left, qreal right, qreal bottom, QColor color);

/// The pixels of `shape`, as the mask of a window of `size`: for desktops that compose nothing,
/// where a translucent corner would be black. Fill the window's whole ground before drawing in it.
[[nodiscard]] QRegion maskOf(const QPainterPath& shape, QSize size);

/// A hairline down from `top` to `bottom` at `x`.
void divider(QPainter& painter, qreal x, qreal top, qreal bottom, QColor color);

}  // namespace vtx::paint
