// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <vector>

#include "ui/kit/ChoiceMenu.h"
#include "ui/kit/KitWidget.h"

namespace vtx {

/// Shows which one of several choices holds, and opens a menu of them by a press, by Space, Return
/// and the arrows down and up. A combo box for assistive technology, named by setAccessibleName(),
/// described by its choice.
class MenuButton : public KitWidget {
    Q_OBJECT

public:
    explicit MenuButton(QWidget* parent = nullptr);

    void setChoices(std::vector<MenuChoice> choices);
    /// Changes what is shown as chosen, without telling; -1 where none of the choices holds.
    void setCurrent(int index);
    [[nodiscard]] int current() const { return current_; }

    /// As wide as the choice that holds.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::ComboBox;
    }
    [[nodiscard]] bool isPressable() const override { return true; }
    void pressWhole() override;
    [[nodiscard]] bool hasMenu() const override { return true; }

    [[nodiscard]] QRect shape() const;
    /// While it is open, otherwise null.
    [[nodiscard]] ChoiceMenu* menu() const { return menu_; }

Q_SIGNALS:
    /// The user chose another one. current() is already it.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// What is written and drawn: a dash where no choice holds.
    [[nodiscard]] MenuChoice shown() const;
    void describe();
    void choose(int index);

    std::vector<MenuChoice> choices_;
    int current_ = -1;
    bool isHovered_ = false;
    QPointer<ChoiceMenu> menu_;
};

}  // namespace vtx
