// SPDX-License-Identifier: MIT
#include "ui/shell/StatusMenu.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <algorithm>

#include "ui/kit/MenuStyle.h"
#include "ui/kit/Metrics.h"
#include "ui/shell/ShellShape.h"
#include "ui/shell/WindowSystem.h"

namespace vtx {

namespace {

/// Between the item and its menu.
constexpr int gap = 4;

QString literal(QString title) { return title.replace('&', "&&"); }

}  // namespace

StatusMenu::StatusMenu(WindowSystem& system, const std::vector<StatusMenuItem>& items)
    : system_(system) {
    setStyle(MenuStyle::shared());
    setWindowFlag(Qt::FramelessWindowHint);
    setWindowFlag(Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    for (const auto& item : items) {
        if (item.isSeparator) {
            addSeparator();
            continue;
        }
        QAction* action = addAction(literal(item.title));
        action->setShortcut(QKeySequence(item.shortcut));
        action->setShortcutVisibleInContextMenu(true);
        action->setEnabled(item.isEnabled);
        if (!item.action) continue;
        // Queued: the menu is gone by then, with its grabs, whatever the action opens.
        connect(
            action, &QAction::triggered, qApp, [run = item.action] { run(); },
            Qt::QueuedConnection);
    }
}

StatusMenu& StatusMenu::popUp(WindowSystem& system, const std::vector<StatusMenuItem>& items,
                              const QRect& anchor) {
    auto* menu = new StatusMenu(system, items);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const int height = menu->sizeHint().height();
    const QScreen* screen = QGuiApplication::screenAt(anchor.center());
    const int end = (screen ? screen : QGuiApplication::primaryScreen())->geometry().bottom();
    const int below = anchor.bottom() + 1 + gap;
    const bool fits = below + height <= end + 1;
    menu->popup(QPoint(anchor.left(), fits ? below : anchor.top() - gap - height));
    return *menu;
}

void StatusMenu::resizeEvent(QResizeEvent* event) {
    QMenu::resizeEvent(event);
    ShellShape::cut(*this, ShellShape::rounded(rect(), {}, metrics::radiusMenu), system_);
}

void StatusMenu::keyPressEvent(QKeyEvent* event) {
    const QKeySequence pressed(event->keyCombination());
    const auto list = actions();
    const auto wanted = std::ranges::find_if(list, [&pressed](const QAction* action) {
        return action->isEnabled() && !action->shortcut().isEmpty() &&
               action->shortcut() == pressed;
    });
    if (wanted == list.end()) return QMenu::keyPressEvent(event);
    QAction* action = *wanted;
    action->trigger();
    close();
}

}  // namespace vtx
