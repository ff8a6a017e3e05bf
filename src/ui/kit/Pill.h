// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/KitWidget.h"

namespace vtx {

enum class PillDot : quint8 { shown, none };

/// A state in one word. Without text there is no pill.
struct PillContent {
    QString text;
    ColorToken color = ColorToken::green;
    PillDot dot = PillDot::shown;

    bool operator==(const PillContent&) const = default;
};

/// A pill inside another widget's picture.
namespace pill {

[[nodiscard]] int widthOf(const PillContent& content);
/// At the height of a pill in the vertical middle of `rect`.
void draw(QPainter& painter, const QRect& rect, const PillContent& content,
          Qt::LayoutDirection direction);

}  // namespace pill

/// A word of state in its colour, with a dot. Static text for assistive technology.
class Pill : public KitWidget {
public:
    explicit Pill(QWidget* parent = nullptr);

    void setContent(PillContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::StaticText;
    }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PillContent content_;
};

}  // namespace vtx
