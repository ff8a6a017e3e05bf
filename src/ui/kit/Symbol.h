// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <QStringList>

class QPainter;
class QRectF;

/// The interface's symbols: line drawings on a grid of 24 units, drawn in any colour at device
/// resolution. A name without a symbol draws nothing. Main thread; pictures of symbols lately
/// drawn are kept, up to a bound.
namespace vtx::symbols {

/// Draws the symbol `size` logical pixels wide in the middle of `rect`, on whole device pixels.
void draw(QPainter& painter, const QRectF& rect, const QString& name, int size, QColor color);

/// The symbol as a picture of `size` times `scale` device pixels; null for an unknown name.
[[nodiscard]] QImage image(const QString& name, int size, QColor color, qreal scale);

[[nodiscard]] bool exists(const QString& name);

/// Every name there is, sorted.
[[nodiscard]] QStringList names();

/// Lets go of the kept pictures, for when every large surface has closed.
void releaseCache();

}  // namespace vtx::symbols
