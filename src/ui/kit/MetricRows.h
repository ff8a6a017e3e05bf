// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

#include "ui/kit/KitWidget.h"
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
/// between. Only rows that differ are painted again. A list for assistive technology, each row an
/// item of its title with its value.
class MetricRows : public KitWidget {
public:
    explicit MetricRows(QWidget* parent = nullptr);

    /// Shows `rows`. The height changes with their number alone.
    void setRows(std::vector<MetricRow> rows);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::List; }
    [[nodiscard]] int partCount() const override { return static_cast<int>(rows_.size()); }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintRow(QPainter& painter, int index) const;

    std::vector<MetricRow> rows_;
};

}  // namespace vtx
