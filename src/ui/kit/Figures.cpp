// SPDX-License-Identifier: MIT
#include "ui/kit/Figures.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/AccessibleReorder.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {
constexpr TextRole labelRole = TextRole::label;
constexpr TextRole captionRole = TextRole::caption;
constexpr int symbolRoom = metrics::figureSymbol + metrics::pillDotGap;
}  // namespace

Figures::Figures(FigureSize size, QWidget* parent) : KitWidget(parent), size_(size) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Figures::setFigures(std::vector<FigureContent> figures) {
    const bool hadCaption = hasCaption();
    const TextRole before = fittingRole();
    std::swap(figures_, figures);
    if (fittingRole() != before) update();
    if (hadCaption != hasCaption()) {
        updateGeometry();
        update();
    }
    if (figures.size() != figures_.size()) {
        updateGeometry();
        update();
        accessibility::announceReorder(*this);
        return;
    }
    for (int i = 0; i < partCount(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (figures_[at] == figures[at]) continue;
        update(partRect(i));
        accessibility::announceValue(*this, i);
    }
}

bool Figures::hasCaption() const {
    return std::any_of(figures_.begin(), figures_.end(), [](const FigureContent& one) {
        return !one.caption.isEmpty() || !one.captionValue.isEmpty();
    });
}

TextRole Figures::role() const {
    return size_ == FigureSize::large ? TextRole::figure : TextRole::figureSmall;
}

bool Figures::allFit(TextRole size) const {
    for (int i = 0; i < partCount(); ++i) {
        const QString& text = figures_.at(static_cast<std::size_t>(i)).text;
        if (tabularWidth(text, size) > partRect(i).width()) return false;
    }
    return true;
}

TextRole Figures::fittingRole() const {
    TextRole fitting = role();
    for (const TextRole smaller : {TextRole::figureSmall, TextRole::clock, TextRole::chartTitle}) {
        if (allFit(fitting)) break;
        fitting = smaller;
    }
    return fitting;
}

QSize Figures::sizeHint() const {
    const int caption = hasCaption() ? metrics::labelToFigure + lineHeight(captionRole) : 0;
    const int height =
        lineHeight(labelRole) + metrics::labelToFigure + lineHeight(role()) + caption;
    return {metrics::cardContentWidth, partCount() == 0 ? 0 : height};
}

QSize Figures::minimumSizeHint() const { return {symbolRoom, sizeHint().height()}; }

AccessiblePart Figures::part(int index) const {
    const FigureContent& shown = figures_.at(static_cast<std::size_t>(index));
    const QStringList words{shown.text, shown.caption, shown.captionValue};
    return {.name = shown.label,
            .value = words.join(QLatin1Char(' ')).trimmed(),
            .role = QAccessible::ListItem};
}

QRect Figures::partRect(int index) const {
    const int left = width() * index / partCount();
    const int right = width() * (index + 1) / partCount();
    const int inset = index == 0 ? 0 : metrics::cardPadding;
    return mirrored({left + inset, 0, right - left - inset, height()});
}

void Figures::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    for (int i = 0; i < partCount(); ++i) {
        if (event->region().intersects(partRect(i))) paintFigure(painter, i);
        if (i == 0) continue;
        const int x = mirrored({width() * i / partCount(), 0, 1, height()}).left();
        paint::divider(painter, x, 0, height(), color(ColorToken::separator));
    }
}

void Figures::paintFigure(QPainter& painter, int index) const {
    const FigureContent& shown = figures_.at(static_cast<std::size_t>(index));
    QRect line = partRect(index);
    line.setHeight(lineHeight(labelRole));
    paintLabel(painter, line, shown);

    line.translate(0, line.height() + metrics::labelToFigure);
    line.setHeight(lineHeight(role()));
    painter.setPen(shown.tint.resolved());
    drawTabular(painter, line, shown.text, fittingRole(), atStart());

    line.translate(0, line.height() + metrics::labelToFigure);
    line.setHeight(lineHeight(captionRole));
    paintCaption(painter, line, shown);
}

void Figures::paintLabel(QPainter& painter, QRect line, const FigureContent& shown) const {
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    if (!shown.symbol.isEmpty()) {
        QRect symbol = line;
        symbol.setWidth(metrics::figureSymbol);
        if (!leftToRight) symbol.moveRight(line.right());
        symbols::draw(painter, symbol, shown.symbol, metrics::figureSymbol, shown.tint.resolved());
        line.adjust(leftToRight ? symbolRoom : 0, 0, leftToRight ? 0 : -symbolRoom, 0);
    }
    painter.setPen(color(ColorToken::text2));
    drawText(painter, line, shown.label, labelRole, atStart());
}

void Figures::paintCaption(QPainter& painter, const QRect& line, const FigureContent& shown) const {
    constexpr int gap = metrics::symbolToTitle;
    const int value = static_cast<int>(std::ceil(tabularWidth(shown.captionValue, labelRole)));
    const int room = shown.captionValue.isEmpty() ? line.width() : line.width() - value - gap;
    const int words =
        std::min(room, static_cast<int>(std::ceil(tabularWidth(shown.caption, captionRole))));
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    const int start = leftToRight ? line.left() : line.right() + 1 - words;
    painter.setPen(color(ColorToken::text2));
    drawValue(painter, QRectF(start, line.top(), words, line.height()), shown.caption, captionRole,
              atStart());
    if (shown.captionValue.isEmpty()) return;
    const int lead = words > 0 ? words + gap : 0;
    painter.setPen(color(ColorToken::text1));
    drawTabular(painter, line.adjusted(leftToRight ? lead : 0, 0, leftToRight ? 0 : -lead, 0),
                shown.captionValue, labelRole, atStart());
}

}  // namespace vtx
