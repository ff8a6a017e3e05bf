// SPDX-License-Identifier: MIT
#include "ui/kit/KeyValueRows.h"

#include <algorithm>
#include <cmath>

#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {
constexpr int leadWidth = 10;
constexpr int leadRoom = leadWidth + 6;
constexpr int leadSymbol = 11;
// The part of a row that its label keeps beside a value of any length.
constexpr double labelShare = 0.3;
}  // namespace

KeyValueRows::KeyValueRows(QWidget* parent) : RowList(parent) {}

AccessiblePart KeyValueRows::part(int index) const {
    return {.name = row(index).label, .value = row(index).value, .role = QAccessible::ListItem};
}

int KeyValueRows::paintLead(QPainter& painter, const QRect& line, const KeyValueRow& shown) const {
    const QRect box(line.left(), line.top(), leadWidth, line.height());
    if (shown.swatch) {
        QRect swatch(0, 0, metrics::swatch, metrics::swatch);
        swatch.moveCenter(mirrored(box).center());
        paint::fillRounded(painter, swatch, metrics::swatchRadius, color(*shown.swatch));
        return leadRoom;
    }
    if (shown.symbol.isEmpty()) return 0;
    symbols::draw(painter, mirrored(box), shown.symbol, leadSymbol, color(ColorToken::text3));
    return leadRoom;
}

void KeyValueRows::paintRow(QPainter& painter, int index) const {
    const KeyValueRow& shown = row(index);
    const QRect line = partRect(index);
    const int lead = paintLead(painter, line, shown);
    const int room = line.width() - lead - metrics::labelToValue;
    const int label = static_cast<int>(std::ceil(textWidth(shown.label, TextRole::rowTitle)));
    const int kept = std::min(label, static_cast<int>(room * labelShare));
    const int wanted = static_cast<int>(std::ceil(tabularWidth(shown.value, TextRole::keyValue)));
    const int value = std::clamp(wanted, 0, std::max(0, room - kept));

    painter.setPen(shown.valueColor.resolved());
    drawValue(painter, mirrored(line.adjusted(line.width() - value, 0, 0, 0)), shown.value,
              TextRole::keyValue, atEnd());
    painter.setPen(color(ColorToken::text2));
    drawText(painter, mirrored(line.adjusted(lead, 0, -value - metrics::labelToValue, 0)),
             shown.label, TextRole::rowTitle, atStart());
    if (index + 1 < partCount()) {
        paint::separator(painter, line.left(), line.left() + line.width(),
                         line.top() + line.height(), color(ColorToken::separator));
    }
}

}  // namespace vtx
