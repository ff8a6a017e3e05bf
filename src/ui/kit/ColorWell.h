// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPointer>

#include "ui/kit/KitWidget.h"

class QColorDialog;

namespace vtx {

/// A colour, and the way to another: a click, Space or Return opens the toolkit's colour dialog,
/// whose choice is told as it is made; giving the dialog up brings the first colour back. A colour
/// chooser for assistive technology, named by setAccessibleName(), described by its colour.
class ColorWell : public KitWidget {
    Q_OBJECT

public:
    explicit ColorWell(QWidget* parent = nullptr);

    /// Changes what is shown, without telling.
    void setColor(QColor color);
    [[nodiscard]] QColor shownColor() const { return color_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::ColorChooser;
    }
    [[nodiscard]] bool isPressable() const override { return true; }
    void pressWhole() override;

    /// The dialog while it is open, otherwise null.
    [[nodiscard]] QColorDialog* dialog() const;
    [[nodiscard]] QRect shape() const;

Q_SIGNALS:
    void opened();
    void chosen(QColor color);
    /// The dialog was given up after a choice was told.
    void givenUp();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QColor color_;
    QPointer<QColorDialog> dialog_;
};

}  // namespace vtx
