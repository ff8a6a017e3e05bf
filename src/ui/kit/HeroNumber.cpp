// SPDX-License-Identifier: MIT
#include "ui/kit/HeroNumber.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {
constexpr TextRole noteRole = TextRole::rowTitle;
// From the middle of the number's line down to the middle of a note on the same base line: half
// of what the capitals differ.
constexpr int noteDrop = 9;

int ceiled(qreal width) { return static_cast<int>(std::ceil(width)); }
}  // namespace

HeroNumber::HeroNumber(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void HeroNumber::setContent(HeroContent content) {
    if (content_ == content) return;
    const int before = labelHeight();
    content_ = std::move(content);
    if (labelHeight() != before) updateGeometry();
    update();
    accessibility::announceValue(*this, 0);
}

int HeroNumber::labelHeight() const {
    const bool hasPill = !content_.pill.text.isEmpty();
    const int text = content_.label.isEmpty() ? 0 : lineHeight(TextRole::label);
    const int line = std::max(text, hasPill ? metrics::pillHeight : 0);
    return line > 0 ? line + metrics::labelToFigure : 0;
}

QSize HeroNumber::sizeHint() const {
    return {metrics::cardContentWidth, labelHeight() + lineHeight(TextRole::hero)};
}

QSize HeroNumber::minimumSizeHint() const { return {0, sizeHint().height()}; }

AccessiblePart HeroNumber::part(int) const {
    QStringList words{content_.text, content_.beside, content_.trailing, content_.pill.text};
    words.removeAll(QString());
    return {.name = content_.label,
            .value = words.join(QStringLiteral(", ")),
            .role = QAccessible::StaticText};
}

void HeroNumber::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintLabel(painter);
    paintNumber(painter);
}

void HeroNumber::paintLabel(QPainter& painter) const {
    const int line = labelHeight() - metrics::labelToFigure;
    if (line <= 0) return;
    const int pillWidth = std::min(pill::widthOf(content_.pill), width() * 2 / 3);
    if (pillWidth > 0) {
        pill::draw(painter, mirrored({width() - pillWidth, 0, pillWidth, line}), content_.pill,
                   layoutDirection());
    }
    const int taken = pillWidth > 0 ? pillWidth + metrics::labelToValue : 0;
    painter.setPen(color(ColorToken::text2));
    drawText(painter, mirrored({0, 0, width() - taken, line}), content_.label, TextRole::label,
             atStart());
}

void HeroNumber::paintNumber(QPainter& painter) const {
    const QRect line(0, labelHeight(), width(), lineHeight(TextRole::hero));
    TextRole role = TextRole::hero;
    for (const TextRole smaller : {TextRole::figure, TextRole::figureSmall, TextRole::clock}) {
        if (tabularWidth(content_.text, role) <= line.width()) break;
        role = smaller;
    }
    painter.setPen(content_.tint.resolved());
    drawTabular(painter, line, content_.text, role, atStart());

    const int number = ceiled(tabularWidth(content_.text, role));
    const QRect notes = line.adjusted(number + metrics::labelToValue, noteDrop, 0, noteDrop);
    const int trailing =
        std::clamp(ceiled(tabularWidth(content_.trailing, noteRole)), 0, notes.width());
    painter.setPen(color(ColorToken::text2));
    drawValue(painter, mirrored(notes.adjusted(notes.width() - trailing, 0, 0, 0)),
              content_.trailing, noteRole, atEnd());
    const int taken = trailing > 0 ? trailing + metrics::labelToValue : 0;
    drawValue(painter, mirrored(notes.adjusted(0, 0, -taken, 0)), content_.beside, noteRole,
              atStart());
}

}  // namespace vtx
