// SPDX-License-Identifier: MIT
#include "ui/kit/ColorWell.h"

#include <QColorDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"

namespace vtx {

namespace {
constexpr int reach = metrics::focusReach;
}

ColorWell::ColorWell(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
}

void ColorWell::setColor(QColor color) {
    if (color_ == color) return;
    color_ = color;
    setAccessibleDescription(color.name(QColor::HexRgb).toUpper());
    update();
}

QSize ColorWell::sizeHint() const {
    return {metrics::colorWellWidth + 2 * reach, metrics::colorWellHeight + 2 * reach};
}

QRect ColorWell::shape() const { return rect().adjusted(reach, reach, -reach, -reach); }

QColorDialog* ColorWell::dialog() const { return dialog_; }

void ColorWell::pressWhole() {
    if (!isEnabled() || dialog_) return;
    dialog_ = new QColorDialog(color_, window());
    dialog_->setAttribute(Qt::WA_DeleteOnClose);
    dialog_->setWindowTitle(accessibleName());
    // The desktop's own dialog may know nothing of windows that stand above others.
    dialog_->setOptions(QColorDialog::DontUseNativeDialog);
    connect(dialog_, &QColorDialog::currentColorChanged, this, &ColorWell::chosen);
    connect(dialog_, &QColorDialog::rejected, this, &ColorWell::givenUp);
    // Not every window manager gives the keyboard back to the window from which it came.
    connect(dialog_, &QDialog::finished, this, [this] { window()->activateWindow(); });
    Q_EMIT opened();
    dialog_->open();
}

void ColorWell::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(metrics::controlDisabled);
    const QRectF ground = shape();
    constexpr double radius = metrics::radiusSmall;
    paint::fillRounded(painter, ground, radius, color_);
    paint::outline(painter, ground, radius, color(ColorToken::borderStrong),
                   metrics::strokeEmphasis);
    if (showsFocus()) paint::focusRing(painter, ground, radius);
}

void ColorWell::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        pressWhole();
}

void ColorWell::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!presses || event->isAutoRepeat()) {
        KitWidget::keyPressEvent(event);
        return;
    }
    setFocusByKeyboard(true);
    pressWhole();
}

}  // namespace vtx
