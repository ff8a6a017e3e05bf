// SPDX-License-Identifier: MIT
#include "ui/kit/MetricRows.h"

#include <QPaintEvent>
#include <QPainter>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {
constexpr int titleLeft = metrics::metricSymbolWidth + metrics::symbolToTitle;
}

MetricRows::MetricRows(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void MetricRows::setRows(std::vector<MetricRow> rows) {
    std::swap(rows_, rows);
    if (rows.size() != rows_.size()) {
        updateGeometry();
        update();
        return;
    }
    for (int i = 0; i < partCount(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (rows_[at] == rows[at]) continue;
        update(partRect(i));
        accessibility::announceValue(*this, i);
    }
}

QSize MetricRows::sizeHint() const {
    return {metrics::popoverWidth - 2 * (metrics::contentInset + metrics::cardPadding),
            metrics::metricRowHeight * partCount()};
}

QSize MetricRows::minimumSizeHint() const { return {titleLeft, sizeHint().height()}; }

AccessiblePart MetricRows::part(int index) const {
    const MetricRow& row = rows_.at(static_cast<std::size_t>(index));
    return {.name = row.title, .value = row.value, .role = QAccessible::ListItem};
}

QRect MetricRows::partRect(int index) const {
    return {0, index * metrics::metricRowHeight, width(), metrics::metricRowHeight};
}

void MetricRows::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    for (int i = 0; i < partCount(); ++i) {
        if (event->region().intersects(partRect(i))) paintRow(painter, i);
    }
}

void MetricRows::paintRow(QPainter& painter, int index) const {
    const MetricRow& row = rows_.at(static_cast<std::size_t>(index));
    const QRect line = partRect(index);
    const QRect symbol(line.left(), line.top(), metrics::metricSymbolWidth, line.height());
    symbols::draw(painter, mirrored(symbol), row.symbol, metrics::metricSymbol,
                  row.symbolColor.resolved());

    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    const Qt::Alignment start = leftToRight ? Qt::AlignLeft : Qt::AlignRight;
    const Qt::Alignment end = leftToRight ? Qt::AlignRight : Qt::AlignLeft;
    painter.setPen(color(row.tint));
    drawTabular(painter, line, row.value, TextRole::rowValue, end | Qt::AlignVCenter);

    const int taken = static_cast<int>(std::ceil(tabularWidth(row.value, TextRole::rowValue)));
    painter.setPen(color(ColorToken::text1));
    drawText(painter, mirrored(line.adjusted(titleLeft, 0, -taken - metrics::cardGap, 0)),
             row.title, TextRole::rowTitle, start | Qt::AlignVCenter);

    if (index + 1 < partCount()) {
        paint::separator(painter, line.left(), line.left() + line.width(),
                         line.top() + line.height(), color(ColorToken::separator));
    }
}

}  // namespace vtx
