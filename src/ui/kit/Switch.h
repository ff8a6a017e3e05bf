// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantAnimation>

#include "ui/kit/KitWidget.h"
#include "ui/kit/Motion.h"

namespace vtx {

/// Something that is on or off. A click and Space turn it over; the knob slides while it is shown.
/// A check box for assistive technology, named by setAccessibleName().
class Switch : public KitWidget {
    Q_OBJECT

public:
    explicit Switch(QWidget* parent = nullptr);

    /// Changes what is shown, without telling.
    void setOn(bool on);
    [[nodiscard]] bool isOn() const { return isOn_; }
    void setMotion(Motion motion) { motion_ = motion; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::CheckBox;
    }
    [[nodiscard]] bool isPressable() const override { return true; }
    void pressWhole() override;
    [[nodiscard]] std::optional<bool> checkedState() const override { return isOn_; }

    /// The switch itself; the room around it is the focus ring's.
    [[nodiscard]] QRect shape() const;

Q_SIGNALS:
    /// The user turned it over. isOn() is already so.
    void toggled(bool on);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// Where the knob is on its way: 0 off, 1 on.
    [[nodiscard]] double position() const;
    void setPressed(bool pressed);

    bool isOn_ = false;
    bool isPressed_ = false;
    Motion motion_ = Motion::full;
    QVariantAnimation slide_;
};

}  // namespace vtx
