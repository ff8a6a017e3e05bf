// SPDX-License-Identifier: MIT
#include "ui/kit/PerCoreBars.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "ui/kit/AccessibleReorder.h"
#include "ui/kit/Bars.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

constexpr TextRole role = TextRole::label;
constexpr int symbolRoom = metrics::figureSymbol + metrics::symbolToTitle;
// Between a label that is wider than usual and its bar.
constexpr int labelGap = 4;

int labelWidthOf(const std::vector<CoreBar>& cores) {
    int widest = metrics::coreLabelWidth;
    for (const CoreBar& core : cores) {
        const auto width = static_cast<int>(std::ceil(tabularWidth(core.label, role)));
        widest = std::max(widest, width + labelGap);
    }
    // However long labels are, most of the row is the bar's.
    return std::min(widest, 2 * metrics::coreLabelWidth);
}

bool sameLabels(const std::vector<CoreBar>& one, const std::vector<CoreBar>& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const CoreBar& a, const CoreBar& b) { return a.label == b.label; });
}

}  // namespace

PerCoreBars::PerCoreBars(QWidget* parent)
    : KitWidget(parent), labelWidth_(metrics::coreLabelWidth) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void PerCoreBars::setContent(PerCoreContent content) {
    for (CoreBar& core : content.cores) core.value = bars::fraction(core.value);
    if (content_ == content) return;
    std::swap(content_, content);
    nameList();
    if (content.cores.size() != content_.cores.size()) accessibility::announceReorder(*this);
    if (!sameLabels(content.cores, content_.cores)) {
        labelWidth_ = labelWidthOf(content_.cores);
        updateGeometry();
        update();
    } else if (!(content.tint == content_.tint)) {
        update();
    } else {
        updateCores(content);
    }
}

void PerCoreBars::nameList() {
    const QString name = QStringList{content_.title, content_.count}.join(QStringLiteral(", "));
    if (accessibleName() != name) setAccessibleName(name);
}

void PerCoreBars::updateCores(const PerCoreContent& before) {
    const bool sameHead = before.symbol == content_.symbol && before.title == content_.title &&
                          before.count == content_.count;
    if (!sameHead) update(0, 0, width(), metrics::coreHeadHeight);
    for (int i = 0; i < partCount(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (before.cores[at] == content_.cores[at]) continue;
        update(partRect(i));
        accessibility::announceValue(*this, i);
    }
}

int PerCoreBars::columnsFor(int width) const {
    constexpr int gap = metrics::coreColumnGap;
    const int least = labelWidth_ + metrics::coreBarLeast + metrics::coreValueWidth;
    const int wanted = (partCount() + metrics::coreColumnRows - 1) / metrics::coreColumnRows;
    return std::max(1, std::min(wanted, (width + gap) / (least + gap)));
}

int PerCoreBars::rowsFor(int width) const {
    const int columns = columnsFor(width);
    return (partCount() + columns - 1) / columns;
}

int PerCoreBars::heightForWidth(int width) const {
    return metrics::coreHeadHeight + rowsFor(width) * metrics::coreRowHeight;
}

QSize PerCoreBars::sizeHint() const {
    return {metrics::cardContentWidth, heightForWidth(metrics::cardContentWidth)};
}

QSize PerCoreBars::minimumSizeHint() const {
    return {labelWidth_ + metrics::coreBarLeast + metrics::coreValueWidth, 0};
}

int PerCoreBars::partCount() const { return static_cast<int>(content_.cores.size()); }

AccessiblePart PerCoreBars::part(int index) const {
    const CoreBar& core = content_.cores.at(static_cast<std::size_t>(index));
    return {.name = core.label, .value = core.text, .role = QAccessible::ListItem};
}

QRect PerCoreBars::partRect(int index) const {
    const int columns = columnsFor(width());
    const int rows = std::max(1, rowsFor(width()));
    const int column = index / rows;
    const int room = width() + metrics::coreColumnGap;
    const int left = room * column / columns;
    const int right = room * (column + 1) / columns - metrics::coreColumnGap;
    const int top = metrics::coreHeadHeight + index % rows * metrics::coreRowHeight;
    return mirrored({left, top, right - left, metrics::coreRowHeight});
}

void PerCoreBars::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRegion region = event->region();
    if (region.intersects(QRect(0, 0, width(), metrics::coreHeadHeight))) paintHead(painter);
    for (int i = 0; i < partCount(); ++i) {
        if (region.intersects(partRect(i))) paintCore(painter, i);
    }
}

void PerCoreBars::paintHead(QPainter& painter) const {
    const QRect head(0, 0, width(), metrics::coreHeadHeight);
    symbols::draw(painter, mirrored({0, 0, metrics::figureSymbol, head.height()}), content_.symbol,
                  metrics::figureSymbol, color(ColorToken::text2));
    const int lead = content_.symbol.isEmpty() ? 0 : symbolRoom;
    const int count = static_cast<int>(std::ceil(tabularWidth(content_.count, role)));
    painter.setPen(color(ColorToken::text2));
    drawValue(painter, head, content_.count, role, atEnd());
    drawText(painter, mirrored(head.adjusted(lead, 0, -count - metrics::labelToValue, 0)),
             content_.title, role, atStart());
}

void PerCoreBars::paintCore(QPainter& painter, int index) const {
    const CoreBar& core = content_.cores.at(static_cast<std::size_t>(index));
    const QRect line = partRect(index);
    const Qt::LayoutDirection direction = layoutDirection();
    const auto within = [&line, direction](const QRect& part) {
        return QStyle::visualRect(direction, line, part);
    };
    painter.setPen(color(ColorToken::text2));
    const QRect label(line.left(), line.top(), labelWidth_, line.height());
    drawValue(painter, within(label), core.label, role, atStart());

    const int length = line.width() - labelWidth_ - metrics::coreValueWidth;
    const QRect bar(line.left() + labelWidth_,
                    line.top() + (line.height() - metrics::barRegular) / 2, std::max(0, length),
                    metrics::barRegular);
    bars::draw(painter, within(bar), core.value,
               {content_.tint.resolved(metrics::barTrackOpacity),
                content_.tint.resolved(metrics::barFillOpacity)},
               direction);
    painter.setPen(color(ColorToken::text1));
    drawTabular(painter, line, core.text, role, atEnd());
}

}  // namespace vtx
