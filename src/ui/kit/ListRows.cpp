// SPDX-License-Identifier: MIT
#include "ui/kit/ListRows.h"

#include <QStyle>
#include <algorithm>
#include <cmath>

#include "ui/kit/Bars.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

constexpr int symbolBox = metrics::metricSymbolWidth;
constexpr int symbolSize = 15;
constexpr int symbolRoom = symbolBox + 8;
constexpr int valueLabelGap = 5;
// Where captions begin beside short titles. However long captions are, names keep that much.
constexpr int captionLeast = 70;
constexpr int markGap = metrics::pillDotGap + 1;

int ceiled(qreal width) { return static_cast<int>(std::ceil(width)); }

// A value that stands alone beside two lines is the figure of its row.
TextRole valueRole(ListKind kind, const ListRow& row) {
    if (kind == ListKind::withBar) return TextRole::keyValue;
    const bool isAlone = kind == ListKind::twoLine && row.values.size() == 1;
    return isAlone ? TextRole::rowValue : TextRole::label;
}

}  // namespace

ListRows::ListRows(ListKind kind, QWidget* parent) : RowList(parent), kind_(kind) {}

void ListRows::setRows(std::vector<ListRow> rows) {
    for (ListRow& row : rows) {
        if (row.bar) row.bar = bars::fraction(*row.bar);
    }
    RowList::setRows(std::move(rows));
}

bool ListRows::arrange() {
    if (kind_ != ListKind::oneLine) return false;
    const int before = captionLeft();
    widest_ = {};
    for (const ListRow& row : rows()) {
        const int lead = row.symbol.isEmpty() ? 0 : symbolRoom;
        widest_.title = std::max(widest_.title, ceiled(textWidth(row.title, TextRole::body)));
        widest_.caption =
            std::max(widest_.caption, ceiled(textWidth(row.caption, TextRole::caption)));
        widest_.end = std::max(widest_.end, lead + endWidth(row));
    }
    return captionLeft() != before;
}

int ListRows::endWidth(const ListRow& shown) const {
    if (shown.values.empty()) return 0;
    const ListValue& value = shown.values.front();
    int width = ceiled(tabularWidth(value.text, valueRole(kind_, shown)));
    if (!value.label.isEmpty())
        width += valueLabelGap + ceiled(textWidth(value.label, TextRole::caption));
    if (shown.mark != StateMark::none) width += metrics::statusDot + markGap;
    return width;
}

int ListRows::captionLeft() const {
    const int room = width() - widest_.end - metrics::labelToValue - widest_.caption;
    return std::max(captionLeast, std::min(widest_.title + metrics::labelToValue, room));
}

int ListRows::rowHeight() const {
    switch (kind_) {
        case ListKind::oneLine:
            return metrics::oneLineRowHeight;
        case ListKind::twoLine:
            return metrics::twoLineRowHeight;
        case ListKind::withBar:
            return metrics::barRowHeight;
    }
    return metrics::oneLineRowHeight;
}

AccessiblePart ListRows::part(int index) const {
    const ListRow& shown = row(index);
    QStringList words;
    if (!shown.caption.isEmpty()) words.append(shown.caption);
    for (const ListValue& value : shown.values) {
        words.append((value.label + QLatin1Char(' ') + value.text).trimmed());
    }
    return {.name = shown.title,
            .value = words.join(QStringLiteral(", ")),
            .role = QAccessible::ListItem};
}

QRect ListRows::within(const QRect& line, const QRect& part) const {
    return QStyle::visualRect(layoutDirection(), line, part);
}

void ListRows::paintRow(QPainter& painter, int index) const {
    const ListRow& shown = row(index);
    const QRect line = partRect(index);
    switch (kind_) {
        case ListKind::oneLine:
            paintOneLine(painter, line, shown);
            break;
        case ListKind::twoLine:
            paintTwoLines(painter, line, shown);
            break;
        case ListKind::withBar:
            paintWithBar(painter, line, shown);
            return;
    }
    if (index + 1 < partCount()) {
        paint::separator(painter, line.left(), line.left() + line.width(),
                         line.top() + line.height(), color(ColorToken::separator));
    }
}

int ListRows::paintSymbol(QPainter& painter, const QRect& line, const ListRow& shown) const {
    if (shown.symbol.isEmpty()) return 0;
    symbols::draw(painter, within(line, {line.left(), line.top(), symbolBox, line.height()}),
                  shown.symbol, symbolSize, shown.symbolColor.resolved());
    return symbolRoom;
}

int ListRows::paintValue(QPainter& painter, const QRect& line, const ListRow& shown,
                         std::size_t index) const {
    const ListValue& value = shown.values[index];
    const TextRole role = valueRole(kind_, shown);
    const int width = std::min(ceiled(tabularWidth(value.text, role)), line.width() * 2 / 3);
    const QRect figure = line.adjusted(line.width() - width, 0, 0, 0);
    painter.setPen(value.color.resolved());
    drawValue(painter, within(line, figure), value.text, role, atEnd());
    if (value.label.isEmpty()) return width;
    const int left = std::min(ceiled(textWidth(value.label, TextRole::caption)),
                              std::max(0, line.width() / 2 - width));
    const QRect label(figure.left() - valueLabelGap - left, line.top(), left, line.height());
    painter.setPen(color(ColorToken::text2));
    drawText(painter, within(line, label), value.label, TextRole::caption, atEnd());
    return width + valueLabelGap + left;
}

int ListRows::paintMark(QPainter& painter, const QRect& line, int taken,
                        const ListRow& shown) const {
    if (shown.mark == StateMark::none || shown.values.empty()) return 0;
    constexpr int size = metrics::statusDot;
    constexpr int gap = markGap;
    const QRect dot(line.right() + 1 - taken - gap - size, line.top() + (line.height() - size) / 2,
                    size, size);
    const QColor tint = shown.values.front().color.resolved();
    if (shown.mark == StateMark::filled) {
        paint::fillRounded(painter, within(line, dot), size / 2.0, tint);
    } else {
        paint::outline(painter, within(line, dot), size / 2.0, tint, metrics::strokeEmphasis);
    }
    return size + gap;
}

void ListRows::paintOneLine(QPainter& painter, const QRect& line, const ListRow& shown) const {
    const int lead = paintSymbol(painter, line, shown);
    int taken = shown.values.empty() ? 0 : paintValue(painter, line, shown, 0);
    taken += paintMark(painter, line, taken, shown);
    const QRect words = line.adjusted(lead, 0, -taken - metrics::labelToValue, 0);
    const bool hasCaption = !shown.caption.isEmpty();
    const int column = captionLeft();
    const int titleRoom = hasCaption ? column - metrics::labelToValue : words.width();
    painter.setPen(color(ColorToken::text1));
    drawName(painter,
             within(line, {words.left(), words.top(), std::min(titleRoom, words.width()),
                           words.height()}),
             shown.title, TextRole::body, atStart());
    if (!hasCaption) return;
    painter.setPen(color(ColorToken::text2));
    drawText(painter, within(line, words.adjusted(column, 0, 0, 0)), shown.caption,
             TextRole::caption, atStart());
}

void ListRows::paintTwoLines(QPainter& painter, const QRect& line, const ListRow& shown) const {
    const int lead = paintSymbol(painter, line, shown);
    const int upper = lineHeight(TextRole::body);
    const int lower = lineHeight(TextRole::caption);
    const int top = line.top() + (line.height() - upper - lower) / 2;
    const QRect first(line.left(), top, line.width(), upper);
    const QRect second(line.left(), top + upper, line.width(), lower);
    int taken = 0;
    if (shown.values.size() == 1) taken = paintValue(painter, line, shown, 0);
    if (shown.values.size() > 1) {
        taken =
            std::max(paintValue(painter, first, shown, 0), paintValue(painter, second, shown, 1));
    }
    const int end = -taken - metrics::labelToValue;
    const bool hasCaption = !shown.caption.isEmpty();
    painter.setPen(color(ColorToken::text1));
    drawName(painter, within(line, (hasCaption ? first : line).adjusted(lead, 0, end, 0)),
             shown.title, TextRole::body, atStart());
    painter.setPen(color(ColorToken::text2));
    drawName(painter, within(line, second.adjusted(lead, 0, end, 0)), shown.caption,
             TextRole::caption, atStart());
}

void ListRows::paintWithBar(QPainter& painter, const QRect& line, const ListRow& shown) const {
    const QRect words(line.left(), line.top() + metrics::labelToFigure, line.width(),
                      lineHeight(TextRole::body));
    const int lead = paintSymbol(painter, words, shown);
    const int taken = shown.values.empty() ? 0 : paintValue(painter, words, shown, 0);
    painter.setPen(color(ColorToken::text1));
    drawName(painter, within(line, words.adjusted(lead, 0, -taken - metrics::labelToValue, 0)),
             shown.title, TextRole::rowTitle, atStart());
    if (!shown.bar) return;
    const QRect bar(line.left(), words.bottom() + 1 + metrics::labelToFigure, line.width(),
                    metrics::barThin);
    bars::draw(painter, bar, *shown.bar, {color(ColorToken::track), shown.barTint.resolved()},
               layoutDirection());
}

}  // namespace vtx
