// SPDX-License-Identifier: MIT
#include "ui/kit/CardTitle.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

TextRole roleOf(TitleEnd style) {
    switch (style) {
        case TitleEnd::note:
            return TextRole::caption;
        case TitleEnd::mark:
            return TextRole::label;
        case TitleEnd::value:
            return TextRole::heading;
        case TitleEnd::load:
            return TextRole::clusterLoad;
    }
    return TextRole::caption;
}

constexpr int markRoom = metrics::figureSymbol + metrics::pillDotGap;

}  // namespace

CardTitle::CardTitle(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CardTitle::setContent(CardTitleContent content) {
    if (content_ == content) return;
    const int height = lineHeightNeeded();
    const int oldEnd = endWidth();
    std::swap(content_, content);
    if (lineHeightNeeded() != height) updateGeometry();
    const bool sameStart = content.title == content_.title && content.symbol == content_.symbol &&
                           content.symbolColor == content_.symbolColor;
    const int end = std::max(oldEnd, endWidth());
    // A title that has to give way to the end's words changes with their width.
    const bool isRoomy = symbolRoom() + textWidth(content_.title, TextRole::sectionHead) +
                             metrics::labelToValue + end <=
                         width();
    update(sameStart && isRoomy ? mirrored({width() - end, 0, end, this->height()}) : rect());
    if (partCount() > 1) accessibility::announceValue(*this, 1);
}

const QString& CardTitle::endText() const {
    return content_.pill.text.isEmpty() ? content_.trailing : content_.pill.text;
}

int CardTitle::symbolRoom() const {
    return content_.symbol.isEmpty() ? 0 : metrics::titleSymbol + metrics::symbolToTitle;
}

int CardTitle::endWidth() const {
    if (!content_.pill.text.isEmpty()) return pill::widthOf(content_.pill);
    if (content_.trailing.isEmpty()) return 0;
    const qreal words = tabularWidth(content_.trailing, roleOf(content_.trailingStyle));
    return static_cast<int>(std::ceil(words)) + (content_.trailingSymbol.isEmpty() ? 0 : markRoom);
}

int CardTitle::lineHeightNeeded() const {
    const int text = content_.trailing.isEmpty() ? 0 : lineHeight(roleOf(content_.trailingStyle));
    const int pill = content_.pill.text.isEmpty() ? 0 : metrics::pillHeight;
    return std::max({lineHeight(TextRole::sectionHead), text, pill});
}

QSize CardTitle::sizeHint() const {
    const auto title =
        static_cast<int>(std::ceil(textWidth(content_.title, TextRole::sectionHead)));
    const int gap = endWidth() > 0 ? metrics::labelToValue : 0;
    return {symbolRoom() + title + gap + endWidth(), lineHeightNeeded()};
}

QSize CardTitle::minimumSizeHint() const { return {symbolRoom(), lineHeightNeeded()}; }

int CardTitle::partCount() const { return endText().isEmpty() ? 1 : 2; }

AccessiblePart CardTitle::part(int index) const {
    if (index == 0) return {.name = content_.title, .value = {}, .role = QAccessible::Heading};
    return {.name = endText(), .value = {}, .role = QAccessible::StaticText};
}

QRect CardTitle::partRect(int index) const {
    // The end has half of the line, and what the title leaves of the other half.
    const auto title =
        static_cast<int>(std::ceil(textWidth(content_.title, TextRole::sectionHead)));
    const int left = width() - symbolRoom() - title - metrics::labelToValue;
    const int end = std::min(endWidth(), std::max(width() / 2, left));
    const QRect start(0, 0, width() - end, height());
    return mirrored(index == 0 ? start : QRect(width() - end, 0, end, height()));
}

void CardTitle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect symbol(0, 0, metrics::titleSymbol, height());
    symbols::draw(painter, mirrored(symbol), content_.symbol, metrics::titleSymbol,
                  content_.symbolColor.resolved());
    const int taken = endWidth() > 0 ? partRect(1).width() + metrics::labelToValue : 0;
    painter.setPen(color(ColorToken::text1));
    drawText(painter, mirrored({symbolRoom(), 0, width() - symbolRoom() - taken, height()}),
             content_.title, TextRole::sectionHead, atStart());
    if (endWidth() > 0) paintEnd(painter);
}

void CardTitle::paintEnd(QPainter& painter) const {
    const QRect end = partRect(1);
    if (!content_.pill.text.isEmpty()) {
        pill::draw(painter, end, content_.pill, layoutDirection());
        return;
    }
    QRect words(width() - end.width(), 0, end.width(), height());
    if (!content_.trailingSymbol.isEmpty()) {
        const QRect symbol(words.left(), 0, metrics::figureSymbol, height());
        symbols::draw(painter, mirrored(symbol), content_.trailingSymbol, metrics::figureSymbol,
                      content_.trailingColor.resolved());
        words.adjust(markRoom, 0, 0, 0);
    }
    painter.setPen(content_.trailingColor.resolved());
    drawValue(painter, mirrored(words), content_.trailing, roleOf(content_.trailingStyle), atEnd());
}

}  // namespace vtx
