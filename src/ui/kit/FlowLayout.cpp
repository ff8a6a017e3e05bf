// SPDX-License-Identifier: MIT
#include "ui/kit/FlowLayout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace vtx {

FlowLayout::FlowLayout(int spacing, int rowSpacing, QWidget* parent)
    : QLayout(parent), rowSpacing_(rowSpacing) {
    setSpacing(spacing);
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item) { items_.emplace_back(item); }

QLayoutItem* FlowLayout::itemAt(int index) const {
    return isIndex(index) ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (!isIndex(index)) return nullptr;
    const auto at = items_.begin() + index;
    QLayoutItem* const taken = at->release();
    items_.erase(at);
    return taken;
}

std::vector<FlowLayout::Row> FlowLayout::rowsFor(int width) const {
    std::vector<Row> rows;
    for (int i = 0; i < count(); ++i) {
        const QSize size = itemAt(i)->sizeHint();
        const bool fits = !rows.empty() && rows.back().width + spacing() + size.width() <= width;
        if (!fits) rows.push_back({});
        Row& row = rows.back();
        row.width += size.width() + (row.indices.empty() ? 0 : spacing());
        row.height = std::max(row.height, size.height());
        row.indices.push_back(i);
    }
    return rows;
}

int FlowLayout::heightForWidth(int width) const {
    int height = 0;
    for (const Row& row : rowsFor(width)) height += row.height + (height > 0 ? rowSpacing_ : 0);
    return height;
}

QSize FlowLayout::sizeHint() const {
    int width = 0;
    int height = 0;
    for (const auto& item : items_) {
        width += item->sizeHint().width() + (width > 0 ? spacing() : 0);
        height = std::max(height, item->sizeHint().height());
    }
    return {width, height};
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const auto& item : items_) size = size.expandedTo(item->minimumSize());
    return size;
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const auto direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int top = rect.top();
    for (const Row& row : rowsFor(rect.width())) {
        int left = rect.left();
        for (const int index : row.indices) {
            const QSize size = itemAt(index)->sizeHint();
            // One that is wider than a row is cut to it.
            const QRect place(left, top, std::min(size.width(), rect.width()), size.height());
            itemAt(index)->setGeometry(QStyle::visualRect(direction, rect, place));
            left += size.width() + spacing();
        }
        top += row.height + rowSpacing_;
    }
}

}  // namespace vtx
