// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "processes/ProcessSnapshot.h"
#include "ui/kit/KitWidget.h"
#include "ui/models/ProcessTabModel.h"

namespace vtx {

/// The processes below one another, as tall as they need: only the rows that are seen are described
/// and painted, and of those only what differs is painted again. One tab stop: the arrows, Home,
/// End and the page keys move among the rows, and the keyboard follows its process when the order
/// changes. Return, Space, the menu key and either mouse button ask for a row's menu. A list for
/// assistive technology, each row an item of its process's name and figures.
class ProcessList final : public KitWidget {
    Q_OBJECT

public:
    explicit ProcessList(QWidget* parent = nullptr);

    void setProcesses(std::vector<ProcessSnapshot> processes);
    /// What stands there while there are none.
    void setPlaceholder(std::optional<ProcessPlaceholderModel> placeholder);
    /// The row whose menu is open, -1 for none.
    void setMenuRow(int row);

    [[nodiscard]] std::size_t processCount() const { return processes_.size(); }
    [[nodiscard]] const ProcessSnapshot& process(int row) const {
        return processes_.at(static_cast<std::size_t>(row));
    }
    /// The list moved under the pointer.
    void lookForPointer();

    /// Where the symbol of a row's menu is, in the list's coordinates.
    [[nodiscard]] QRect actionRect(int row) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::List; }
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;
    [[nodiscard]] int focusedPart() const override { return current_; }
    void pressPart(int index) override;

Q_SIGNALS:
    /// The menu of a row is wanted, beside `anchor`, which is in the list's coordinates.
    void menuWanted(int row, QRect anchor);
    /// The keyboard came to that row.
    void currentMoved(QRect row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] int rowCount() const { return static_cast<int>(processes_.size()); }
    /// -1 for none.
    [[nodiscard]] int rowAt(QPoint position) const;
    [[nodiscard]] std::optional<int> keyTarget(int key) const;
    [[nodiscard]] int rowsOfAPage() const;
    void setHovered(int row);
    void setCurrent(int row);
    void updateRow(int row);
    void followCurrent(const std::vector<ProcessSnapshot>& before);
    void paintRow(QPainter& painter, int row) const;
    void paintGround(QPainter& painter, int row) const;
    void paintName(QPainter& painter, const QRect& place, const QString& name,
                   const QString& mark) const;
    void paintPlaceholder(QPainter& painter) const;

    std::vector<ProcessSnapshot> processes_;
    std::optional<ProcessPlaceholderModel> placeholder_;
    int hovered_ = -1;
    int current_ = -1;
    int menuRow_ = -1;
    int pressedAction_ = -1;
};

}  // namespace vtx
