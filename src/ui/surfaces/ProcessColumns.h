// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include "ui/kit/KitWidget.h"

namespace vtx {

/// Where the columns of the process list stand in a row of that width, from left to right.
struct ProcessColumnPlaces {
    QRect name, cpu, memory, pid, action;

    [[nodiscard]] static ProcessColumnPlaces in(const QRect& row);
};

/// The line with the columns' titles. Headings of columns for assistive technology.
class ProcessColumns final : public KitWidget {
public:
    explicit ProcessColumns(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Grouping;
    }
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace vtx
