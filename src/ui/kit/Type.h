// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>
#include <QtGlobal>

class QPainter;
class QRectF;

namespace vtx {

/// The kinds of text, largest first.
enum class TextRole : quint8 {
    hero,         // 38/600
    figure,       // 28/600
    figureSmall,  // 22/600
    clusterLoad,  // 20/600
    clock,        // 17/600
    heading,      // 15/600
    sectionHead,  // 13/600
    chartTitle,   // 12/600
    body,         // 13/400
    rowTitle,     // 12/400
    rowValue,     // 13/600
    keyValue,     // 12/500
    label,        // 11/500
    labelValue,   // 11/600
    caption,      // 11/400
    small,        // 10/400
    axis,         // 9/400
    strip,        // 11/500
    tray,         // 9/600
};

/// The font of a role, with its size in logical pixels. It stays until the fonts are released. Main
/// thread.
[[nodiscard]] const QFont& fontFor(TextRole role);

/// Lets go of every font that was used, of the glyphs drawn with them and of what is known of their
/// files. The next text takes what it needs anew.
void releaseFonts();

/// The height of one line of the role.
[[nodiscard]] int lineHeight(TextRole role);

/// The width of running text.
[[nodiscard]] qreal textWidth(const QString& text, TextRole role);

/// Draws one line of running text, shortened at the end where it does not fit. The painter's pen
/// is the colour.
void drawText(QPainter& painter, const QRectF& rect, const QString& text, TextRole role,
              Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);

/// The same for a name: shortened in the middle, where names differ least.
void drawName(QPainter& painter, const QRectF& rect, const QString& text, TextRole role,
              Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);

/// The width of a figure whose digits all take the widest digit's room, so that "11" and "88" are
/// equally wide.
[[nodiscard]] qreal tabularWidth(const QString& text, TextRole role);

/// Draws a figure with every digit in a cell of the widest digit's width; never shortened.
void drawTabular(QPainter& painter, const QRectF& rect, const QString& text, TextRole role,
                 Qt::Alignment alignment = Qt::AlignRight | Qt::AlignVCenter);

/// Draws a value that may be a figure or words: as a figure where it fits, otherwise shortened at
/// the end.
void drawValue(QPainter& painter, const QRectF& rect, const QString& text, TextRole role,
               Qt::Alignment alignment = Qt::AlignRight | Qt::AlignVCenter);

}  // namespace vtx
