// SPDX-License-Identifier: MIT
#include "ui/surfaces/ProcessMenu.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "ui/shell/NativeWindowSystem.h"
#include "ui/shell/StatusMenu.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {

/// Between the anchor and the menu.
constexpr int gap = 2;

QPoint placeOf(QSize menu, const QRect& anchor, const QWidget& page) {
    const bool leftToRight = page.layoutDirection() == Qt::LeftToRight;
    const QScreen* screen = page.screen();
    const int end = screen ? screen->geometry().bottom() : anchor.bottom() + menu.height();
    // Where the pointer is a menu begins; below a symbol it ends.
    const bool begins = anchor.width() <= 1 || !leftToRight;
    const int x = begins ? anchor.left() : anchor.right() + 1 - menu.width();
    const int below = anchor.bottom() + 1 + gap;
    const bool fits = below + menu.height() <= end + 1;
    return {x, fits ? below : anchor.top() - gap - menu.height()};
}

}  // namespace

ProcessMenu::ProcessMenu() = default;
ProcessMenu::~ProcessMenu() { delete menu_; }

void ProcessMenu::popUp(const std::vector<ProcessMenuEntry>& entries, const QRect& anchor,
                        Asked asked, const QWidget& page, Chosen chosen,
                        std::function<void()> closed) {
    delete menu_;
    if (!system_) system_ = nativeWindowSystem();
    std::vector<StatusMenuItem> items;
    // The page may have gone by the time that an entry acts.
    const QPointer<const QWidget> alive = &page;
    for (const ProcessMenuEntry& entry : entries) {
        if (entry.isSeparator()) {
            items.push_back(StatusMenuItem::separator());
            continue;
        }
        const auto act = [alive, chosen, entry] {
            if (alive) chosen(entry);
        };
        items.push_back({qt(entry.title), {}, act, false, entry.isEnabled});
    }
    auto* menu = new StatusMenu(*system_, items);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu_ = menu;
    QObject::connect(menu, &QMenu::aboutToHide, &page, [closed = std::move(closed)] { closed(); });
    menu->popup(placeOf(menu->sizeHint(), anchor, page));
    const auto actions = menu->actions();
    const auto first =
        std::ranges::find_if(actions, [](const QAction* a) { return a->isEnabled(); });
    if (asked == Asked::byKeyboard && first != actions.end()) menu->setActiveAction(*first);
}

void ProcessMenu::close() {
    if (menu_) menu_->close();
}

}  // namespace vtx
