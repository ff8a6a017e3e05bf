// SPDX-License-Identifier: MIT
#include "ui/kit/AccessibleReorder.h"

#include <QAccessible>
#include <QWidget>

namespace vtx::accessibility {

void announceReorder(QWidget& widget) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(&widget, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
}

}  // namespace vtx::accessibility
