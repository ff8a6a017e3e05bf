// SPDX-License-Identifier: MIT
#include "ui/surfaces/LanguageCards.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "ui/kit/AccessibleChoice.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Type.h"

namespace vtx {
namespace {

constexpr int columns = 2;
constexpr int reach = metrics::focusReach;
constexpr float selectedFill = 0.11F;
constexpr float selectedOutline = 0.55F;
constexpr float hoverFill = 0.06F;

int cardHeight() {
    return 2 * metrics::languageCardPadding + lineHeight(TextRole::rowValue) +
           lineHeight(TextRole::caption);
}

}  // namespace

LanguageCards::LanguageCards(QWidget* parent) : KitWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void LanguageCards::setCards(std::vector<LanguageCardContent> cards) {
    if (cards_ == cards) return;
    cards_ = std::move(cards);
    focused_ = std::clamp(focused_, 0, std::max(0, partCount() - 1));
    updateGeometry();
    update();
}

void LanguageCards::setSelection(std::optional<int> selection) {
    if (selection_ == selection) return;
    const auto before = std::exchange(selection_, selection);
    for (const auto changed : {before, selection}) {
        updatePart(changed);
        if (changed && *changed < partCount()) accessibility::announceChoice(*this, *changed);
    }
    if (selection) focused_ = *selection;
}

// The focus ring stands outside its card, so the cards keep that much to the widget's edge.
QSize LanguageCards::sizeHint() const {
    const int rows = (partCount() + columns - 1) / columns;
    const int gaps = std::max(0, rows - 1) * metrics::languageCardGap;
    return {metrics::pickerWidth - 2 * metrics::pickerPadding + 2 * reach,
            rows * cardHeight() + gaps + 2 * reach};
}

AccessiblePart LanguageCards::part(int index) const {
    const LanguageCardContent& card = cards_.at(static_cast<std::size_t>(index));
    return {.name = card.nativeName,
            .value = card.label,
            .role = QAccessible::RadioButton,
            .pressable = true,
            .selected = selection_ == index};
}

QRect LanguageCards::partRect(int index) const {
    const int gap = metrics::languageCardGap;
    const int card = (width() - 2 * reach - (columns - 1) * gap) / columns;
    return mirrored({reach + index % columns * (card + gap),
                     reach + index / columns * (cardHeight() + gap), card, cardHeight()});
}

void LanguageCards::pressPart(int index) {
    setFocused(index);
    if (selection_ == index) return;
    setSelection(index);
    Q_EMIT selected(index);
}

std::optional<int> LanguageCards::partAt(QPoint place) const {
    for (int i = 0; i < partCount(); ++i)
        if (partRect(i).contains(place)) return i;
    return std::nullopt;
}

void LanguageCards::updatePart(std::optional<int> index) {
    if (index && *index < partCount())
        update(partRect(*index).adjusted(-reach, -reach, reach, reach));
}

void LanguageCards::setHovered(std::optional<int> index) {
    if (hovered_ == index) return;
    updatePart(std::exchange(hovered_, index));
    updatePart(index);
}

void LanguageCards::setFocused(int index) {
    updatePart(std::exchange(focused_, index));
    updatePart(index);
    if (hasFocus()) accessibility::announceFocus(*this, index);
}

void LanguageCards::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    event->accept();
    const auto index = partAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index) pressPart(*index);
}

void LanguageCards::mouseMoveEvent(QMouseEvent* event) {
    setHovered(partAt(event->position().toPoint()));
}

void LanguageCards::leaveEvent(QEvent*) { setHovered(std::nullopt); }

std::optional<int> LanguageCards::target(int key) const {
    const int forward = layoutDirection() == Qt::LeftToRight ? 1 : -1;
    const int last = partCount() - 1;
    const auto by = [this, last](int step) {
        const int there = focused_ + step;
        return there < 0 || there > last ? focused_ : there;
    };
    switch (key) {
        case Qt::Key_Right:
            return by(forward);
        case Qt::Key_Left:
            return by(-forward);
        case Qt::Key_Down:
            return by(columns);
        case Qt::Key_Up:
            return by(-columns);
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return last;
        case Qt::Key_Space:
            return focused_;
        default:
            return std::nullopt;
    }
}

void LanguageCards::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const auto to = target(event->key());
    if (partCount() == 0 || !isPlain || !to) {
        event->ignore();
        return;
    }
    setFocusByKeyboard(true);
    pressPart(*to);
}

void LanguageCards::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    for (int i = 0; i < partCount(); ++i) {
        const QRect whole = partRect(i).adjusted(-reach, -reach, reach, reach);
        if (event->region().intersects(whole)) paintCard(painter, i);
    }
}

void LanguageCards::paintCard(QPainter& painter, int index) const {
    const QRect bounds = partRect(index);
    constexpr qreal radius = metrics::radiusGroup;
    const bool isSelected = selection_ == index, isHovered = hovered_ == index;
    paint::fillRounded(painter, bounds, radius, color(ColorToken::card));
    if (isSelected)
        paint::fillRounded(painter, bounds, radius, color(ColorToken::accent, selectedFill));
    else if (isHovered)
        paint::fillRounded(painter, bounds, radius, color(ColorToken::text1, hoverFill));
    paint::outline(painter, bounds, radius,
                   isSelected  ? color(ColorToken::accent, selectedOutline)
                   : isHovered ? color(ColorToken::borderStrong)
                               : color(ColorToken::cardBorder),
                   isSelected ? metrics::strokeEmphasis : paint::hairline(painter));
    if (showsFocus() && index == focused_) paint::focusRing(painter, bounds, radius);

    constexpr int padding = metrics::languageCardPadding, mark = metrics::languageCardMark;
    paintMark(painter,
              mirrored({bounds.left() + padding, bounds.top() + (bounds.height() - mark) / 2, mark,
                        mark}),
              isSelected);
    const LanguageCardContent& card = cards_.at(static_cast<std::size_t>(index));
    QRect line =
        bounds.adjusted(padding + mark + metrics::languageCardTextGap, padding, -padding, -padding);
    line.setHeight(lineHeight(TextRole::rowValue));
    painter.setPen(color(ColorToken::text1));
    drawText(painter, mirrored(line), card.nativeName, TextRole::rowValue, atStart());
    line.translate(0, line.height());
    line.setHeight(lineHeight(TextRole::caption));
    painter.setPen(color(ColorToken::text2));
    drawText(painter, mirrored(line), card.label, TextRole::caption, atStart());
}

void LanguageCards::paintMark(QPainter& painter, const QRectF& place, bool isSelected) const {
    const QColor ring = color(isSelected ? ColorToken::accent : ColorToken::text3);
    paint::outline(painter, place, place.width() / 2, ring, metrics::strokeLine);
    if (!isSelected) return;
    QRectF dot(0, 0, metrics::languageCardDot, metrics::languageCardDot);
    dot.moveCenter(place.center());
    paint::fillRounded(painter, dot, dot.width() / 2, ring);
}

}  // namespace vtx
