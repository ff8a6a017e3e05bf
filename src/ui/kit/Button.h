// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <memory>

#include "ui/kit/KitWidget.h"
#include "ui/kit/Tooltip.h"

namespace vtx {

enum class ButtonKind : quint8 { standard, primary, destructive, quiet };

/// A button with a word, a symbol, or both. Pressed by the pointer, Space and Return. A button for
/// assistive technology, of its word, or of its accessible name where it has none.
class Button : public KitWidget {
    Q_OBJECT

public:
    explicit Button(ButtonKind kind = ButtonKind::standard, QWidget* parent = nullptr);

    void setText(const QString& text);
    void setSymbol(const QString& symbol);
    /// A word of explanation for the pointer that rests here; none where it is empty.
    void setTip(const QString& tip);
    /// Within the shape, which then fills the widget: for buttons side by side without a gap.
    void setRingInside();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Button; }
    [[nodiscard]] bool isPressable() const override { return true; }
    void pressWhole() override;

    /// The button's shape; the room around it is the focus ring's.
    [[nodiscard]] QRect shape() const;

Q_SIGNALS:
    void pressed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Look {
        QColor fill;
        QColor text;
        bool isOutlined;
    };
    [[nodiscard]] Look look() const;
    [[nodiscard]] Look solidLook(ColorToken fill, ColorToken text) const;
    [[nodiscard]] bool isSolid() const;
    [[nodiscard]] int contentWidth() const;
    void setState(bool hovered, bool pressed);

    ButtonKind kind_;
    QString text_;
    QString symbol_;
    QString tip_;
    std::unique_ptr<HoverTip> hoverTip_;
    bool hasRingInside_ = false;
    bool isHovered_ = false;
    bool isPressed_ = false;
};

}  // namespace vtx
