// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace vtx {

/// Places its items from left to right and begins a new row where one would pass the width.
class FlowLayout final : public QLayout {
public:
    /// Items of one row, by their places in the layout.
    struct Row {
        std::vector<int> indices;
        int width = 0;
        int height = 0;

        bool operator==(const Row&) const = default;
    };

    FlowLayout(int spacing, int rowSpacing, QWidget* parent = nullptr);
    ~FlowLayout() override;

    [[nodiscard]] std::vector<Row> rowsFor(int width) const;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override { return static_cast<int>(items_.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    [[nodiscard]] bool isIndex(int index) const { return index >= 0 && index < count(); }

    std::vector<std::unique_ptr<QLayoutItem>> items_;
    int rowSpacing_;
};

}  // namespace vtx
