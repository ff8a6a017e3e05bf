// SPDX-License-Identifier: MIT
#include "ui/kit/PaletteAppearanceSource.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace vtx {

PaletteAppearanceSource::PaletteAppearanceSource() { qGuiApp->installEventFilter(this); }

Appearance PaletteAppearanceSource::appearance() const {
    const QPalette palette = QGuiApplication::palette();
    const int window = palette.color(QPalette::Window).lightness();
    const int text = palette.color(QPalette::WindowText).lightness();
    return window < text ? Appearance::dark : Appearance::light;
}

bool PaletteAppearanceSource::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange && changed) {
        changed();
    }
    return false;
}

void FixedAppearanceSource::set(Appearance appearance) {
    appearance_ = appearance;
    if (changed) changed();
}

}  // namespace vtx
