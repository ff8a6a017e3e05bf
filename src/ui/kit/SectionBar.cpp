// SPDX-License-Identifier: MIT
#include "ui/kit/SectionBar.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "ui/kit/AccessibleReorder.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"

namespace vtx {

namespace {
constexpr float selectedFill = 0.17F;
constexpr float selectedRing = 0.38F;
constexpr int step = metrics::sectionButton + metrics::sectionGap;
// Between the action and the divider in front of it.
constexpr int dividerGap = 6;

bool isPlain(const QKeyEvent& event) {
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}
}  // namespace

SectionBar::SectionBar(QWidget* parent) : KitWidget(parent), tip_(*this) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void SectionBar::setItems(std::vector<SectionItem> items) {
    if (items_ == items) return;
    const QString focused = focusedId();
    items_ = std::move(items);
    contentsChanged(focused);
}

void SectionBar::setAction(std::optional<SectionItem> action) {
    if (action_ == action) return;
    const QString focused = focusedId();
    action_ = std::move(action);
    contentsChanged(focused);
}

void SectionBar::contentsChanged(const QString& focusedBefore) {
    hovered_ = pressed_ = -1;
    focused_ = placeOf(focusedBefore);
    tip_.dismiss();
    updateGeometry();
    update();
    accessibility::announceReorder(*this);
    if (hasFocus() && partCount() > 0) accessibility::announceFocus(*this, focused_);
}

QString SectionBar::focusedId() const {
    return focused_ < partCount() ? item(focused_).id : QString();
}

int SectionBar::placeOf(const QString& id) const {
    // Nobody moved the focus where none is seen: it is to begin at what is selected.
    for (int i = 0; showsFocus() && i < partCount(); ++i) {
        if (item(i).id == id) return i;
    }
    return std::max(0, currentIndex());
}

void SectionBar::setCurrent(const QString& id) {
    if (current_ == id) return;
    updatePart(currentIndex());
    current_ = id;
    updatePart(currentIndex());
    if (!showsFocus() && currentIndex() >= 0) focused_ = currentIndex();
}

QSize SectionBar::sizeHint() const {
    const int buttons = static_cast<int>(items_.size()) + (action_ ? 1 : 0);
    const int row = std::max(0, buttons * step - metrics::sectionGap);
    return {2 * metrics::sectionInset + row + (action_ ? dividerGap : 0),
            metrics::sectionBarHeight};
}

int SectionBar::partCount() const { return static_cast<int>(items_.size()) + (action_ ? 1 : 0); }

AccessiblePart SectionBar::part(int index) const {
    return {.name = item(index).title,
            .value = {},
            .role = isAction(index) ? QAccessible::Button : QAccessible::PageTab,
            .pressable = true,
            .selected = !isAction(index) && index == currentIndex()};
}

QRect SectionBar::partRect(int index) const {
    constexpr int top = (metrics::sectionBarHeight - 1 - metrics::sectionButton) / 2;
    const int x = isAction(index) ? width() - metrics::sectionInset - metrics::sectionButton
                                  : metrics::sectionInset + index * step;
    return mirrored({x, top, metrics::sectionButton, metrics::sectionButton});
}

void SectionBar::pressPart(int index) {
    tip_.dismiss();
    if (isAction(index)) {
        Q_EMIT triggered(action_->id);
        return;
    }
    const QString id = item(index).id;
    if (id == current_) return;
    setCurrent(id);
    Q_EMIT selected(id);
}

const SectionItem& SectionBar::item(int index) const {
    return isAction(index) ? *action_ : items_.at(static_cast<std::size_t>(index));
}

bool SectionBar::isAction(int index) const {
    return action_ && index == static_cast<int>(items_.size());
}

int SectionBar::partAt(QPoint position) const {
    for (int i = 0; i < partCount(); ++i) {
        if (partRect(i).contains(position)) return i;
    }
    return -1;
}

int SectionBar::currentIndex() const {
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [this](const SectionItem& one) { return one.id == current_; });
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void SectionBar::updatePart(int index) {
    if (index < 0 || index >= partCount()) return;
    constexpr int reach = metrics::focusReach;
    update(partRect(index).adjusted(-reach, -reach, reach, reach));
}

void SectionBar::setHovered(int index) {
    if (hovered_ == index) return;
    updatePart(std::exchange(hovered_, index));
    updatePart(index);
    if (index < 0) {
        tip_.dismiss();
    } else {
        tip_.pointAt(partRect(index), item(index).title);
    }
}

void SectionBar::setPressed(int index) {
    if (pressed_ == index) return;
    updatePart(std::exchange(pressed_, index));
    updatePart(index);
}

void SectionBar::setFocused(int index) {
    updatePart(std::exchange(focused_, index));
    updatePart(index);
    if (hasFocus()) accessibility::announceFocus(*this, index);
}

void SectionBar::mouseMoveEvent(QMouseEvent* event) {
    setHovered(partAt(event->position().toPoint()));
}

void SectionBar::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    if (event->button() != Qt::LeftButton) return;
    tip_.dismiss();
    const int index = partAt(event->position().toPoint());
    setPressed(index);
    if (index >= 0) setFocused(index);
    event->accept();
}

void SectionBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int index = std::exchange(pressed_, -1);
    updatePart(index);
    if (index >= 0 && index == partAt(event->position().toPoint())) pressPart(index);
}

void SectionBar::leaveEvent(QEvent*) { setHovered(-1); }

void SectionBar::hideEvent(QHideEvent*) {
    setHovered(-1);
    setPressed(-1);
    focused_ = std::max(0, currentIndex());
}

void SectionBar::focusInEvent(QFocusEvent* event) {
    KitWidget::focusInEvent(event);
    const bool entered =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (entered) setFocused(std::max(0, currentIndex()));
}

std::optional<int> SectionBar::focusTarget(int key) const {
    const int last = partCount() - 1;
    const int forward = layoutDirection() == Qt::LeftToRight ? 1 : -1;
    switch (key) {
        case Qt::Key_Right:
            return std::clamp(focused_ + forward, 0, last);
        case Qt::Key_Left:
            return std::clamp(focused_ - forward, 0, last);
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return last;
        default:
            return std::nullopt;
    }
}

bool SectionBar::selectByDigit(const QKeyEvent& event) {
    if (event.key() < Qt::Key_0 || event.key() > Qt::Key_9 || !isPlain(event)) return false;
    // As the keys lie beside each other: the tenth is 0.
    const int index = event.key() == Qt::Key_0 ? 9 : event.key() - Qt::Key_1;
    if (index >= static_cast<int>(items_.size())) return false;
    if (hasFocus()) setFocusByKeyboard(true);
    setFocused(index);
    pressPart(index);
    return true;
}

void SectionBar::keyPressEvent(QKeyEvent* event) {
    if (selectByDigit(*event)) return;
    const int key = event->key();
    const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    const std::optional<int> target = focusTarget(key);
    if (partCount() == 0 || !isPlain(*event) || !(presses || target)) {
        event->ignore();
        return;
    }
    setFocusByKeyboard(true);
    if (target) setFocused(*target);
    if (presses) pressPart(focused_);
}

void SectionBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint::separator(painter, 0, width(), height(), color(ColorToken::separator));
    for (int i = 0; i < partCount(); ++i) paintPart(painter, i);
    if (!action_) return;
    const QRect action = partRect(partCount() - 1);
    const int x = layoutDirection() == Qt::LeftToRight ? action.left() - dividerGap
                                                       : action.right() + 1 + dividerGap;
    const qreal top = action.center().y() + 1 - metrics::sectionDivider / 2.0;
    paint::divider(painter, x, top, top + metrics::sectionDivider, color(ColorToken::borderStrong));
}

void SectionBar::paintPart(QPainter& painter, int index) const {
    const QRectF bounds = partRect(index);
    constexpr qreal radius = metrics::radiusButton;
    const bool isCurrent = !isAction(index) && index == currentIndex();
    const bool isLit = index == hovered_ || index == pressed_;
    if (isCurrent) {
        paint::fillRounded(painter, bounds, radius, color(ColorToken::accent, selectedFill));
        paint::outline(painter, bounds, radius, color(ColorToken::accent, selectedRing),
                       metrics::strokeEmphasis);
    } else if (isLit) {
        paint::fillRounded(painter, bounds, radius,
                           color(index == pressed_ ? ColorToken::press : ColorToken::hover));
    }
    if (showsFocus() && index == focused_) paint::focusRing(painter, bounds, radius);
    const ColorToken tint = isCurrent ? ColorToken::accent
                            : isLit   ? ColorToken::text1
                                      : ColorToken::text2;
    symbols::draw(painter, bounds, item(index).symbol, metrics::sectionSymbol, color(tint));
}

}  // namespace vtx
