// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "ui/kit/KitWidget.h"
#include "ui/kit/Tooltip.h"

namespace vtx {

/// One button of a section bar.
struct SectionItem {
    /// What selected() and triggered() tell.
    QString id;
    QString symbol;
    /// Its tooltip and accessible name.
    QString title;

    bool operator==(const SectionItem&) const = default;
};

/// The row of symbol buttons at the top of popover and dashboard, with a line below. One of them
/// is selected; behind a divider at the end there may be a button that acts. One tab stop: arrows,
/// Home and End move the focus, Space and Return press, 1 to 9 select at once. The focus enters at
/// the selected button and stays with a button as others come and go.
class SectionBar : public KitWidget {
    Q_OBJECT

public:
    explicit SectionBar(QWidget* parent = nullptr);

    void setItems(std::vector<SectionItem> items);
    void setAction(std::optional<SectionItem> action);
    /// Changes what is shown as selected, without telling. An unknown id selects nothing.
    void setCurrent(const QString& id);
    [[nodiscard]] const QString& current() const { return current_; }
    /// Selects by a plain digit, wherever that was pressed; false where it stands for no item.
    bool selectByDigit(const QKeyEvent& event);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::PageTabList;
    }
    /// The items, then the action.
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;
    [[nodiscard]] int focusedPart() const override { return focused_; }
    void pressPart(int index) override;

    [[nodiscard]] HoverTip& hoverTip() { return tip_; }

Q_SIGNALS:
    /// The user picked another item. current() is already it.
    void selected(const QString& id);
    /// The user pressed the action.
    void triggered(const QString& id);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] const SectionItem& item(int index) const;
    [[nodiscard]] bool isAction(int index) const;
    [[nodiscard]] int partAt(QPoint position) const;
    /// -1 while nothing is selected.
    [[nodiscard]] int currentIndex() const;
    [[nodiscard]] std::optional<int> focusTarget(int key) const;
    void setHovered(int index);
    void setPressed(int index);
    void setFocused(int index);
    void updatePart(int index);
    [[nodiscard]] QString focusedId() const;
    /// Where the focus belongs that was on `id`.
    [[nodiscard]] int placeOf(const QString& id) const;
    void contentsChanged(const QString& focusedBefore);
    void paintPart(QPainter& painter, int index) const;

    std::vector<SectionItem> items_;
    std::optional<SectionItem> action_;
    QString current_;
    int hovered_ = -1;
    int pressed_ = -1;
    int focused_ = 0;
    HoverTip tip_;
};

}  // namespace vtx
