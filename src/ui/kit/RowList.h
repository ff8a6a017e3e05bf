// SPDX-License-Identifier: MIT
#pragma once

#include <QPaintEvent>
#include <QPainter>
#include <utility>
#include <vector>

#include "ui/kit/AccessibleReorder.h"
#include "ui/kit/KitWidget.h"
#include "ui/kit/Metrics.h"

namespace vtx {

/// Base of the painted lists: rows of one height below one another. Only rows that differ are
/// painted again, and the layout is asked again only when their number changed. A list for
/// assistive technology, each row an item.
template <class Row>
class RowList : public KitWidget {
public:
    explicit RowList(QWidget* parent) : KitWidget(parent) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    void setRows(std::vector<Row> rows) {
        std::swap(rows_, rows);
        if (arrange()) update();
        if (rows.size() == rows_.size()) {
            updateRows(rows);
            return;
        }
        updateGeometry();
        update();
        accessibility::announceReorder(*this);
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {metrics::cardContentWidth, rowHeight() * partCount()};
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {metrics::metricSymbolWidth, rowHeight() * partCount()};
    }

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::List; }
    [[nodiscard]] int partCount() const override { return static_cast<int>(rows_.size()); }
    [[nodiscard]] QRect partRect(int index) const override {
        return {0, index * rowHeight(), width(), rowHeight()};
    }

protected:
    [[nodiscard]] virtual int rowHeight() const = 0;
    virtual void paintRow(QPainter& painter, int index) const = 0;
    /// Called with the new rows; true where something that all rows share has moved.
    virtual bool arrange() { return false; }

    [[nodiscard]] const Row& row(int index) const {
        return rows_.at(static_cast<std::size_t>(index));
    }
    [[nodiscard]] std::vector<Row>& rows() { return rows_; }

    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        for (int i = 0; i < partCount(); ++i) {
            if (event->region().intersects(partRect(i))) paintRow(painter, i);
        }
    }

private:
    void updateRows(const std::vector<Row>& before) {
        for (int i = 0; i < partCount(); ++i) {
            if (before[static_cast<std::size_t>(i)] == row(i)) continue;
            update(partRect(i));
            accessibility::announceValue(*this, i);
        }
    }

    std::vector<Row> rows_;
};

}  // namespace vtx
