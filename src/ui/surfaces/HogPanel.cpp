// SPDX-License-Identifier: MIT
#include "ui/surfaces/HogPanel.h"

#include <QPainter>
#include <cmath>
#include <utility>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/WrappedText.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {

constexpr int padding = metrics::hogPadding;
constexpr int inset = metrics::contentInset;
constexpr TextRole titleRole = TextRole::chartTitle;
constexpr TextRole hintRole = TextRole::caption;

int titleHeight() { return lineHeight(titleRole); }

ColorToken colorOf(HogSeverity severity) {
    switch (severity) {
        case HogSeverity::severe:
            return ColorToken::red;
        case HogSeverity::notable:
            return ColorToken::orange;
        case HogSeverity::slight:
            break;
    }
    return ColorToken::text2;
}

}  // namespace

HogPanel::HogPanel(QWidget* parent) : KitWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void HogPanel::setModel(HogPanelModel model) {
    if (model_ == model) return;
    const HogPanelModel before = std::exchange(model_, std::move(model));
    if (before.rows.size() != model_.rows.size() || before.hint != model_.hint) updateGeometry();
    update();
}

int HogPanel::heightForWidth(int width) const {
    // Beside the card it has room above itself, and its last row less below than its text above.
    const int head = metrics::cardGap + padding + titleHeight();
    if (model_.rows.empty()) {
        const int text = wrapped::height(qt(model_.hint), hintRole, width - 2 * (inset + padding));
        return head + metrics::titleToRows + text + padding;
    }
    return head + metrics::hogRowGap +
           static_cast<int>(model_.rows.size()) * metrics::hogRowHeight + padding -
           metrics::hogRowGap;
}

QSize HogPanel::sizeHint() const {
    return {metrics::popoverWidth, heightForWidth(metrics::popoverWidth)};
}

QRect HogPanel::card() const { return rect().adjusted(inset, metrics::cardGap, -inset, 0); }

QRect HogPanel::titleRect() const {
    const QRect inner = card().adjusted(padding, padding, -padding, 0);
    return {inner.left(), inner.top(), inner.width(), titleHeight()};
}

QRect HogPanel::rowRect(int row) const {
    const QRect title = titleRect();
    const int top = title.bottom() + 1 + metrics::hogRowGap + row * metrics::hogRowHeight;
    return {title.left(), top, title.width(), metrics::hogRowHeight};
}

QRect HogPanel::hintRect() const {
    const QRect title = titleRect();
    const int top = title.bottom() + 1 + metrics::titleToRows;
    return {title.left(), top, title.width(), card().bottom() + 1 - padding - top};
}

int HogPanel::partCount() const {
    return 1 + (model_.rows.empty() ? 1 : static_cast<int>(model_.rows.size()));
}

AccessiblePart HogPanel::part(int index) const {
    if (index == 0)
        return {.name = qt(model_.title), .value = qt(model_.count), .role = QAccessible::Heading};
    if (model_.rows.empty()) return {.name = qt(model_.hint), .value = {}};
    const HogRowModel& row = model_.rows.at(static_cast<std::size_t>(index - 1));
    return {.name = qt(row.name),
            .value = qt(row.average + ", " + row.subtitle),
            .role = QAccessible::ListItem};
}

QRect HogPanel::partRect(int index) const {
    if (index == 0) return titleRect();
    return model_.rows.empty() ? hintRect() : rowRect(index - 1);
}

void HogPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint::fillRounded(painter, card(), metrics::radiusWindow, color(ColorToken::card));
    paint::outline(painter, card(), metrics::radiusWindow, color(ColorToken::cardBorder),
                   paint::hairline(painter));
    paintTitle(painter);
    for (int row = 0; row < static_cast<int>(model_.rows.size()); ++row) paintRow(painter, row);
    if (!model_.rows.empty()) return;
    painter.setPen(color(ColorToken::text2));
    wrapped::draw(painter, hintRect(), qt(model_.hint), hintRole, atStart());
}

void HogPanel::paintTitle(QPainter& painter) const {
    const QRect line = titleRect();
    const QRect symbol(line.left(), line.top(), metrics::hogTitleSymbol, line.height());
    symbols::draw(painter, mirrored(symbol), QStringLiteral("exclamationmark.triangle.fill"),
                  metrics::hogTitleSymbol, color(ColorToken::orange));
    const QString count = qt(model_.count);
    painter.setPen(color(ColorToken::text2));
    drawTabular(painter, line, count, TextRole::caption, atEnd());
    const int left = metrics::hogTitleSymbol + metrics::symbolToTitle;
    const int taken = static_cast<int>(std::ceil(tabularWidth(count, TextRole::caption)));
    painter.setPen(color(ColorToken::text1));
    drawText(painter, mirrored(line.adjusted(left, 0, -taken - metrics::labelToValue, 0)),
             qt(model_.title), titleRole, atStart());
}

void HogPanel::paintRow(QPainter& painter, int row) const {
    const HogRowModel& said = model_.rows.at(static_cast<std::size_t>(row));
    const QRect line = rowRect(row);
    const QColor severity = color(colorOf(said.severity));
    const QRect symbol(line.left(), line.top(), metrics::hogSymbol, line.height());
    symbols::draw(painter, mirrored(symbol), qt(symbolOf(said.severity)), metrics::hogSymbol,
                  severity);
    const QString average = qt(said.average);
    painter.setPen(severity);
    drawTabular(painter, line, average, TextRole::rowValue, atEnd());
    const int taken = static_cast<int>(std::ceil(tabularWidth(average, TextRole::rowValue)));
    const QRect text = line.adjusted(metrics::hogSymbol + metrics::hogSymbolToName, 0,
                                     -taken - metrics::labelToValue, 0);
    const int name = lineHeight(TextRole::keyValue);
    const int both = name + lineHeight(TextRole::small);
    const QRect first(text.left(), text.top() + (text.height() - both) / 2, text.width(), name);
    const QRect second(text.left(), first.bottom() + 1, text.width(), lineHeight(TextRole::small));
    painter.setPen(color(ColorToken::text1));
    drawName(painter, mirrored(first), qt(said.name), TextRole::keyValue, atStart());
    painter.setPen(color(ColorToken::text2));
    drawText(painter, mirrored(second), qt(said.subtitle), TextRole::small, atStart());
}

}  // namespace vtx
