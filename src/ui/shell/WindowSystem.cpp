// SPDX-License-Identifier: MIT
#include "ui/shell/WindowSystem.h"

#include <QCursor>
#include <QPainterPath>
#include <QRegion>
#include <QWidget>

#include "ui/kit/Paint.h"
#include "ui/shell/ScreenList.h"

namespace vtx {

StripPlacement::Screens WindowSystem::screens() const { return screenList::shellScreens(); }

void WindowSystem::cutOut(QWidget& window, const QPainterPath& path) {
    window.setMask(paint::maskOf(path, window.size()));
}

QPoint WindowSystem::pointer() const { return QCursor::pos(); }

}  // namespace vtx
