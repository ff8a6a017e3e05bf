// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

#include "ui/kit/KitWidget.h"
#include "ui/kit/SeriesColor.h"

namespace vtx {

/// One core's load.
struct CoreBar {
    QString label;
    /// 0 to 1; held within.
    double value = 0;
    /// The value as it is shown.
    QString text;

    bool operator==(const CoreBar&) const = default;
};

struct PerCoreContent {
    QString symbol;
    QString title;
    /// How many there are, in words.
    QString count;
    std::vector<CoreBar> cores;
    SeriesColor tint = ColorToken::cpu;

    bool operator==(const PerCoreContent&) const = default;
};

/// A bar for every core under a title, in one column as long as they are few, in more where there
/// are many and the width allows. One widget for any number of cores; it paints the cores that
/// differ. A list for assistive technology, called by title and count, each core an item.
class PerCoreBars : public KitWidget {
public:
    explicit PerCoreBars(QWidget* parent = nullptr);

    void setContent(PerCoreContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::List; }
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

    /// In how many columns the cores stand in `width`.
    [[nodiscard]] int columnsFor(int width) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int rowsFor(int width) const;
    void nameList();
    void updateCores(const PerCoreContent& before);
    void paintHead(QPainter& painter) const;
    void paintCore(QPainter& painter, int index) const;

    PerCoreContent content_;
    /// Wide enough for the longest label.
    int labelWidth_;
};

}  // namespace vtx
