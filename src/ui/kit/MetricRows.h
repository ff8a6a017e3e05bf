// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/RowList.h"
#include "ui/kit/SeriesColor.h"

namespace vtx {

/// One line of a metric list.
struct MetricRow {
    QString symbol;
    QString title;
    /// As it is shown, with its unit; the dash where it is not known.
    QString value;
    ColorToken tint = ColorToken::text1;
    SeriesColor symbolColor = ColorToken::text2;

    bool operator==(const MetricRow&) const = default;
};

/// Metrics below one another: symbol, title, and the value at the other end, with hairlines
/// between. Each row speaks its title with its value.
class MetricRows : public RowList<MetricRow> {
public:
    explicit MetricRows(QWidget* parent = nullptr);

    [[nodiscard]] AccessiblePart part(int index) const override;

protected:
    [[nodiscard]] int rowHeight() const override { return metrics::metricRowHeight; }
    void paintRow(QPainter& painter, int index) const override;
};

}  // namespace vtx
