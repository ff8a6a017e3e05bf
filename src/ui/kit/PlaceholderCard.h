// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/KitWidget.h"

namespace vtx {

/// Empty fields are left out.
struct PlaceholderContent {
    QString symbol;
    QString title;
    QString body = {};

    bool operator==(const PlaceholderContent&) const = default;
};

/// A card in place of a page that has nothing to show, saying why. Grows with its texts. A group
/// for assistive technology, of the title and the text.
class PlaceholderCard : public KitWidget {
public:
    explicit PlaceholderCard(QWidget* parent = nullptr);

    void setContent(PlaceholderContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Grouping;
    }
    [[nodiscard]] int partCount() const override { return content_.body.isEmpty() ? 1 : 2; }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Layout {
        QRect symbol;
        QRect title;
        QRect body;
        int height;
    };
    [[nodiscard]] Layout layOut(int width) const;

    PlaceholderContent content_;
};

}  // namespace vtx
