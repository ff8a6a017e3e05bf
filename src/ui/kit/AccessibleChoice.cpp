// SPDX-License-Identifier: MIT
#include "ui/kit/AccessibleChoice.h"

#include <QAccessible>
#include <QWidget>

namespace vtx::accessibility {

void announceChoice(QWidget& widget, int index) {
    if (!QAccessible::isActive()) return;
    QAccessibleInterface* owner = QAccessible::queryAccessibleInterface(&widget);
    QAccessibleInterface* part = owner ? owner->child(index) : nullptr;
    if (!part) return;
    QAccessible::State changed;
    changed.checked = changed.selected = true;
    QAccessibleStateChangeEvent event(part, changed);
    QAccessible::updateAccessibility(&event);
}

}  // namespace vtx::accessibility
