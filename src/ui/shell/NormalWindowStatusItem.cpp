// SPDX-License-Identifier: MIT
#include "ui/shell/NormalWindowStatusItem.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "base/Log.h"
#include "ui/kit/Metrics.h"
#include "ui/shell/StripSurface.h"

namespace vtx {

namespace {

constexpr Logger logger{"StatusItem"};

int widestScreen() {
    int width = 1;
    for (const QScreen* screen : QGuiApplication::screens())
        width = std::max(width, screen->availableGeometry().width());
    return width;
}

}  // namespace

NormalWindowStatusItem::NormalWindowStatusItem() : surface_(new StripSurface(&window_)) {
    logger.standard("Windows cannot be placed here; the strip is shown as a normal window");
    window_.setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowMinimizeButtonHint);
    window_.setAttribute(Qt::WA_QuitOnClose, false);
    window_.setFocusProxy(surface_);
    surface_->setTouching(Qt::LeftEdge | Qt::RightEdge | Qt::TopEdge | Qt::BottomEdge);
    surface_->onClick = [this](StatusItemClick click, QPoint at) {
        if (onClick) onClick(click, at);
    };
    surface_->onPress = [this] {
        if (onPress) onPress();
    };
    surface_->onRelease = [this] {
        if (onRelease) onRelease();
    };
    setLength(metrics::stripHeight);
}

NormalWindowStatusItem::~NormalWindowStatusItem() = default;

double NormalWindowStatusItem::thickness() const { return metrics::stripHeight; }

void NormalWindowStatusItem::setLength(double length) {
    const int wanted = std::max(1, static_cast<int>(std::ceil(length)));
    const QSize size(std::min(wanted, widestScreen()), metrics::stripHeight);
    if (surface_->size() == size && window_.size() == size) return;
    window_.setFixedSize(size);
    surface_->resize(size);
    if (onMove) onMove();
}

void NormalWindowStatusItem::setContent(QWidget* content) { surface_->setContent(content); }

void NormalWindowStatusItem::setHighlighted(bool highlighted) {
    surface_->setHighlighted(highlighted);
}

void NormalWindowStatusItem::setTitle(const QString& title) { window_.setWindowTitle(title); }

void NormalWindowStatusItem::setAccessibleText(const QString& name, const QString& description) {
    surface_->setAccessibleName(name);
    surface_->setAccessibleDescription(description);
}

void NormalWindowStatusItem::show() {
    window_.show();
    surface_->setFocus(Qt::OtherFocusReason);
}

}  // namespace vtx
