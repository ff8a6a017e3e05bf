// SPDX-License-Identifier: MIT
#include "ui/surfaces/ProcessList.h"

#include <QContextMenuEvent>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "ui/kit/Metrics.h"
#include "ui/models/ProcessRowModel.h"
#include "ui/surfaces/ProcessColumns.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {

constexpr int rowHeight = metrics::processRowHeight;

bool isSameProcess(const ProcessSnapshot& a, const ProcessSnapshot& b) {
    return a.pid == b.pid && a.startTime == b.startTime;
}

}  // namespace

ProcessList::ProcessList(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::MinimumExpanding);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    // Rows stay where they are when the list grows at its end.
    setAttribute(Qt::WA_StaticContents);
}

void ProcessList::setProcesses(std::vector<ProcessSnapshot> processes) {
    const auto before = std::exchange(processes_, std::move(processes));
    pressedAction_ = -1;
    followCurrent(before);
    if (before.size() != processes_.size()) updateGeometry();
    // Beyond the shorter list everything differs; what is not seen needs no telling.
    const QRect seen = visibleRegion().boundingRect();
    const int last = std::max(rowCount(), static_cast<int>(before.size())) - 1;
    for (int row = std::max(0, seen.top() / rowHeight);
         row <= std::min(last, seen.bottom() / rowHeight); ++row) {
        const auto at = static_cast<std::size_t>(row);
        const bool isSame = at < before.size() && at < processes_.size() &&
                            describeProcessRow(before[at]) == describeProcessRow(processes_[at]);
        if (!isSame) updateRow(row);
    }
    if (hovered_ >= rowCount()) hovered_ = -1;
}

void ProcessList::followCurrent(const std::vector<ProcessSnapshot>& before) {
    if (current_ < 0) return;
    const ProcessSnapshot& held = before.at(static_cast<std::size_t>(current_));
    const auto found = std::ranges::find_if(
        processes_, [&held](const ProcessSnapshot& one) { return isSameProcess(one, held); });
    const int row = found == processes_.end() ? std::min(current_, rowCount() - 1)
                                              : static_cast<int>(found - processes_.begin());
    if (row == current_) {
        if (hasFocus()) accessibility::announceValue(*this, row);
        return;
    }
    updateRow(std::exchange(current_, row));
    updateRow(row);
    if (found == processes_.end() && hasFocus() && row >= 0)
        accessibility::announceFocus(*this, row);
}

void ProcessList::setPlaceholder(std::optional<ProcessPlaceholderModel> placeholder) {
    if (placeholder_ == placeholder) return;
    placeholder_ = std::move(placeholder);
    update();
}

void ProcessList::setMenuRow(int row) {
    updateRow(std::exchange(menuRow_, row));
    updateRow(row);
}

QSize ProcessList::sizeHint() const {
    constexpr int placeholderRows = 5;
    const int rows = rowCount() == 0 ? placeholderRows : rowCount();
    return {metrics::popoverWidth, rows * rowHeight};
}

int ProcessList::partCount() const {
    if (rowCount() == 0) return placeholder_ ? 1 : 0;
    return rowCount();
}

AccessiblePart ProcessList::part(int index) const {
    if (rowCount() == 0) return {.name = qt(placeholder_->text), .value = {}};
    const ProcessRowModel row = describeProcessRow(process(index));
    return {.name = qt(row.name),
            .value = qt(row.spoken),
            .role = QAccessible::ListItem,
            .pressable = true,
            .selected = index == current_};
}

QRect ProcessList::partRect(int index) const {
    if (rowCount() == 0) return rect();
    return {0, index * rowHeight, width(), rowHeight};
}

QRect ProcessList::actionRect(int row) const {
    const QRect column = ProcessColumnPlaces::in(partRect(row)).action;
    // The symbol ends with its column.
    const int centre = column.right() + 1 - metrics::processActionSymbol / 2;
    return mirrored({centre - metrics::processActionHit / 2,
                     column.top() + (rowHeight - metrics::processActionHit) / 2,
                     metrics::processActionHit, metrics::processActionHit});
}

void ProcessList::pressPart(int index) {
    if (index < 0 || index >= rowCount()) return;
    setCurrent(index);
    Q_EMIT menuWanted(index, actionRect(index));
}

int ProcessList::rowAt(QPoint position) const {
    if (!rect().contains(position)) return -1;
    const int row = position.y() / rowHeight;
    return row < rowCount() ? row : -1;
}

void ProcessList::updateRow(int row) {
    // Nothing of a row lies in its margins, where the window's outline would be drawn again.
    constexpr int inset = metrics::processRowInset;
    if (row >= 0) update(QRect(inset, row * rowHeight, width() - 2 * inset, rowHeight));
}

void ProcessList::setHovered(int row) {
    if (hovered_ == row) return;
    updateRow(std::exchange(hovered_, row));
    updateRow(row);
}

void ProcessList::setCurrent(int row) {
    updateRow(std::exchange(current_, row));
    updateRow(row);
    if (hasFocus()) accessibility::announceFocus(*this, row);
}

void ProcessList::mouseMoveEvent(QMouseEvent* event) {
    setHovered(rowAt(event->position().toPoint()));
}

void ProcessList::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    const QPoint at = event->position().toPoint();
    const int row = rowAt(at);
    if (row >= 0) setCurrent(row);
    const bool isAction = row >= 0 && actionRect(row).contains(at);
    pressedAction_ = isAction && event->button() == Qt::LeftButton ? row : -1;
    event->accept();
}

void ProcessList::mouseReleaseEvent(QMouseEvent* event) {
    const int row = std::exchange(pressedAction_, -1);
    if (event->button() != Qt::LeftButton || row < 0) return;
    if (actionRect(row).contains(event->position().toPoint()))
        Q_EMIT menuWanted(row, actionRect(row));
}

void ProcessList::contextMenuEvent(QContextMenuEvent* event) {
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    if (isByKeyboard) setFocusByKeyboard(true);
    const int row = isByKeyboard ? current_ : rowAt(event->pos());
    if (row < 0 || row >= rowCount()) return;
    setCurrent(row);
    Q_EMIT menuWanted(row, isByKeyboard ? actionRect(row) : QRect(event->pos(), QSize(1, 1)));
}

void ProcessList::lookForPointer() {
    setHovered(underMouse() ? rowAt(mapFromGlobal(QCursor::pos())) : -1);
}

void ProcessList::leaveEvent(QEvent*) { setHovered(-1); }

void ProcessList::hideEvent(QHideEvent*) { hovered_ = pressedAction_ = menuRow_ = -1; }

void ProcessList::focusInEvent(QFocusEvent* event) {
    KitWidget::focusInEvent(event);
    if (current_ >= 0 || rowCount() == 0) return;
    setCurrent(std::clamp(visibleRegion().boundingRect().top() / rowHeight, 0, rowCount() - 1));
}

int ProcessList::rowsOfAPage() const {
    return std::max(1, visibleRegion().boundingRect().height() / rowHeight - 1);
}

std::optional<int> ProcessList::keyTarget(int key) const {
    switch (key) {
        case Qt::Key_Down:
            return current_ + 1;
        case Qt::Key_Up:
            return current_ - 1;
        case Qt::Key_PageDown:
            return current_ + rowsOfAPage();
        case Qt::Key_PageUp:
            return current_ - rowsOfAPage();
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return rowCount() - 1;
        default:
            return std::nullopt;
    }
}

void ProcessList::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool presses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    const auto target = keyTarget(key);
    if (rowCount() == 0 || !isPlain || !(presses || target)) return event->ignore();
    setFocusByKeyboard(true);
    if (target) {
        setCurrent(std::clamp(*target, 0, rowCount() - 1));
        Q_EMIT currentMoved(partRect(current_));
    } else {
        pressPart(std::max(current_, 0));
    }
}

}  // namespace vtx
