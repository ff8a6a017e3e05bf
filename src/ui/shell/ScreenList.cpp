// SPDX-License-Identifier: MIT
#include "ui/shell/ScreenList.h"

#include <QGuiApplication>
#include <QScreen>

namespace vtx::screenList {

QList<QScreen*> ordered() {
    QList<QScreen*> screens = QGuiApplication::screens();
    const auto primary = screens.indexOf(QGuiApplication::primaryScreen());
    if (primary > 0) screens.move(primary, 0);
    return screens;
}

QMargins marginsOf(const QScreen& screen) {
    const QRect all = screen.geometry(), free = screen.availableGeometry();
    return {free.left() - all.left(), free.top() - all.top(), all.right() - free.right(),
            all.bottom() - free.bottom()};
}

StripPlacement::Screens shellScreens() {
    StripPlacement::Screens screens;
    for (const QScreen* screen : ordered())
        screens.push_back(
            {screen->name(), screen->geometry(), screen->devicePixelRatio(), marginsOf(*screen)});
    return screens;
}

}  // namespace vtx::screenList
