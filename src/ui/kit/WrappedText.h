// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>
#include <QStringList>

#include "ui/kit/Type.h"

/// Running text over as many lines as it needs.
namespace vtx::wrapped {

/// The lines of `text` in `width`: broken between words, within one where it alone is too long, and
/// at line feeds. None for an empty text.
[[nodiscard]] QStringList lines(const QString& text, TextRole role, int width);

/// What those lines take together.
[[nodiscard]] int height(const QString& text, TextRole role, int width);

/// Draws the lines from the top of `rect` down. The painter's pen is the colour.
void draw(QPainter& painter, const QRect& rect, const QString& text, TextRole role,
          Qt::Alignment alignment);

}  // namespace vtx::wrapped
