// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "ui/kit/AccessibleParts.h"
#include "ui/kit/Color.h"

namespace vtx {

/// Base of every widget of the kit: painted by itself, repainted when the theme changes, with its
/// own accessible role, and aware of whether the keyboard brought the focus here.
class KitWidget : public QWidget, public AccessibleHost {
public:
    explicit KitWidget(QWidget* parent = nullptr);

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Client; }

    /// Whether the focus ring is due: focused, and by keyboard.
    [[nodiscard]] bool showsFocus() const { return hasFocus() && focusByKeyboard_; }

protected:
    [[nodiscard]] static QColor color(ColorToken token);
    [[nodiscard]] static QColor color(ColorToken token, float opacity);

    /// Where layoutDirection() puts a rectangle that is meant for left to right.
    [[nodiscard]] QRect mirrored(const QRect& rect) const;

    /// Where a line of text begins and ends, each in the vertical middle.
    [[nodiscard]] Qt::Alignment atStart() const;
    [[nodiscard]] Qt::Alignment atEnd() const;

    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

    /// Called by a widget that acted on a key, or on the pointer.
    void setFocusByKeyboard(bool byKeyboard);

private:
    bool focusByKeyboard_ = false;
};

}  // namespace vtx
