// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/KitWidget.h"
#include "ui/kit/Tooltip.h"

namespace vtx {

class Button;
class TextField;

/// The line above the process list: what to look for, and a button that samples at once.
class ProcessFilterBar final : public KitWidget {
    Q_OBJECT

public:
    explicit ProcessFilterBar(QWidget* parent = nullptr);

    [[nodiscard]] TextField& field() const { return *field_; }
    [[nodiscard]] Button& refresh() const { return *refresh_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Grouping;
    }

protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    TextField* field_;
    Button* refresh_;
    HoverTip tip_;
};

}  // namespace vtx
