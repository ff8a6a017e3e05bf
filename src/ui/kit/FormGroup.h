// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/KitWidget.h"

class QVBoxLayout;

namespace vtx {

class FormNote;
class SectionHead;

/// A group of a form: its title, its rows on one ground with lines between them, and what is to be
/// said about them below. Grouping for assistive technology, by its title.
class FormGroup : public KitWidget {
public:
    explicit FormGroup(QWidget* parent = nullptr);

    void setTitle(const QString& title);
    void setFooter(const QString& text, const QString& symbol = {});
    /// Adds a row below those there are, and becomes its owner.
    void addRow(QWidget* row);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Grouping;
    }

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    void place();
    [[nodiscard]] int groundHeight(int width) const;

    SectionHead* title_;
    QWidget* ground_;
    QVBoxLayout* rows_;
    FormNote* footer_;
};

}  // namespace vtx
