// SPDX-License-Identifier: MIT
#include "ui/kit/ChoiceMenu.h"

#include <QAction>
#include <QGuiApplication>
#include <QPainterPath>
#include <QScreen>
#include <algorithm>

#include "ui/kit/MenuStyle.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"

namespace vtx {

namespace {
constexpr int gap = 4;
}

ChoiceMenu::ChoiceMenu(const std::vector<MenuChoice>& choices, int current, QWidget* parent)
    : QMenu(parent) {
    setStyle(MenuStyle::shared());
    setWindowFlag(Qt::FramelessWindowHint);
    setWindowFlag(Qt::NoDropShadowWindowHint);
    setProperty(paint::cutOutProperty, true);
    int index = 0;
    for (const MenuChoice& choice : choices) {
        QAction* action = addAction(QString(choice.text).replace('&', "&&"));
        action->setData(choice.symbol);
        action->setCheckable(true);
        action->setChecked(index == current);
        connect(action, &QAction::triggered, this, [this, index] {
            if (onChoice) onChoice(index);
        });
        if (index++ == current) setActiveAction(action);
    }
}

void ChoiceMenu::popUp(const QRect& anchor) {
    setAttribute(Qt::WA_DeleteOnClose);
    const QSize size = sizeHint();
    const QScreen* screen = QGuiApplication::screenAt(anchor.center());
    const QRect room = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    const int x =
        layoutDirection() == Qt::LeftToRight ? anchor.right() + 1 - size.width() : anchor.left();
    const int below = anchor.bottom() + 1 + gap;
    const bool fits = below + size.height() <= room.bottom() + 1;
    popup({std::max(room.left(), x), fits ? below : anchor.top() - gap - size.height()});
}

// Cut out and not translucent: where nothing composes windows, translucency is black.
void ChoiceMenu::resizeEvent(QResizeEvent* event) {
    QMenu::resizeEvent(event);
    QPainterPath shape;
    shape.addRoundedRect(rect(), metrics::radiusMenu, metrics::radiusMenu);
    setMask(paint::maskOf(shape, size()));
}

}  // namespace vtx
