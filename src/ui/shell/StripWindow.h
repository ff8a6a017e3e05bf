// SPDX-License-Identifier: MIT
#pragma once

#include <QCloseEvent>
#include <QWidget>

#include "ui/kit/AccessibleParts.h"

namespace vtx {

/// The window around the strip. Only the application's end closes it: without it the user could
/// not reach the application any more.
class StripWindow final : public QWidget, public AccessibleHost {
public:
    StripWindow() { accessibility::install(); }
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Window; }

protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(!event->spontaneous()); }
};

}  // namespace vtx
