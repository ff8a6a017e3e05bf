// SPDX-License-Identifier: MIT
#include "ui/kit/Surface.h"

#include <QPaintEvent>
#include <QPainter>

namespace vtx {

Surface::Surface(QWidget* parent) : KitWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

void Surface::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(event->rect(), color(ColorToken::window));
}

}  // namespace vtx
