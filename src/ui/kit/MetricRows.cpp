// SPDX-License-Identifier: MIT
#include "ui/kit/MetricRows.h"

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

MetricRows::MetricRows(QWidget* parent) : RowList(parent) {}

AccessiblePart MetricRows::part(int index) const {
    const MetricRow& shown = row(index);
    return {.name = shown.title, .value = shown.value, .role = QAccessible::ListItem};
}

void MetricRows::paintRow(QPainter& painter, int index) const {
    const MetricRow& shown = row(index);
    const QRect line = partRect(index);
    const QRect symbol(line.left(), line.top(), metrics::metricSymbolWidth, line.height());
    symbols::draw(painter, mirrored(symbol), shown.symbol, metrics::metricSymbol,
                  shown.symbolColor.resolved());

    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    const Qt::Alignment start = leftToRight ? Qt::AlignLeft : Qt::AlignRight;
    const Qt::Alignment end = leftToRight ? Qt::AlignRight : Qt::AlignLeft;
    painter.setPen(color(shown.tint));
    drawTabular(painter, line, shown.value, TextRole::rowValue, end | Qt::AlignVCenter);

    const int taken = static_cast<int>(std::ceil(tabularWidth(shown.value, TextRole::rowValue)));
    painter.setPen(color(ColorToken::text1));
    drawText(painter, mirrored(line.adjusted(titleLeft, 0, -taken - metrics::cardGap, 0)),
             shown.title, TextRole::rowTitle, start | Qt::AlignVCenter);

    if (index + 1 < partCount()) {
        paint::separator(painter, line.left(), line.left() + line.width(),
                         line.top() + line.height(), color(ColorToken::separator));
    }
}

}  // namespace vtx
