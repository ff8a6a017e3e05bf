// SPDX-License-Identifier: MIT
#include "ui/shell/linux/StatusNotifierTray.h"

namespace vtx {
namespace {

StatusItemClick clickOf(StatusNotifierItem::Click click) {
    return click == StatusNotifierItem::Click::primary ? StatusItemClick::left
                                                       : StatusItemClick::right;
}

StatusNotifierItem::Picture pictureOf(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_ARGB32);
    StatusNotifierItem::Picture picture{plain.width(), plain.height(), {}};
    picture.argb.reserve(static_cast<std::size_t>(plain.width() * plain.height()) * 4);
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            const QRgb pixel = plain.pixel(x, y);
            for (const int part : {qAlpha(pixel), qRed(pixel), qGreen(pixel), qBlue(pixel)})
                picture.argb.push_back(static_cast<std::uint8_t>(part));
        }
    }
    return picture;
}

}  // namespace

StatusNotifierTray::StatusNotifierTray(SystemBus& session, const QString& identifier,
                                       const QString& title)
    : item_(session, identifier.toStdString(), title.toStdString()) {
    item_.onClick = [this](StatusNotifierItem::Click click, int x, int y) {
        // The middle button has no meaning for the strip either.
        if (click != StatusNotifierItem::Click::secondary && onClick)
            onClick(clickOf(click), QPoint(x, y));
    };
    item_.onHostedChange = [this] {
        if (onHostedChange) onHostedChange();
    };
}

void StatusNotifierTray::setPictures(const std::vector<QImage>& pictures) {
    std::vector<StatusNotifierItem::Picture> made;
    made.reserve(pictures.size());
    for (const QImage& image : pictures) made.push_back(pictureOf(image));
    item_.setPictures(std::move(made));
}

void StatusNotifierTray::setToolTip(const QString& text) { item_.setToolTip(text.toStdString()); }

}  // namespace vtx
