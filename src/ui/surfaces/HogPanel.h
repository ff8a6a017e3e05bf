// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/KitWidget.h"
#include "ui/models/HogPanelModel.h"

namespace vtx {

/// The card above the process list that says which processes hold the processor in the background.
/// A list for assistive technology: the title with their number, then each of them, or why there is
/// none.
class HogPanel final : public KitWidget {
public:
    explicit HogPanel(QWidget* parent = nullptr);

    void setModel(HogPanelModel model);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::List; }
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRect card() const;
    [[nodiscard]] QRect titleRect() const;
    [[nodiscard]] QRect rowRect(int row) const;
    [[nodiscard]] QRect hintRect() const;
    void paintTitle(QPainter& painter) const;
    void paintRow(QPainter& painter, int row) const;

    HogPanelModel model_;
};

}  // namespace vtx
