// SPDX-License-Identifier: MIT
#include "pictures/PictureMaker.h"

#include <QCoreApplication>
#include <QDir>
#include <QWidget>
#include <algorithm>
#include <array>
#include <iterator>

#include "pictures/PictureStage.h"
#include "ui/kit/PaletteAppearanceSource.h"
#include "ui/kit/Theme.h"

namespace vtx {
namespace {

constexpr std::array appearances{Appearance::light, Appearance::dark};
constexpr std::array scales{1.0, 1.5, 2.0};

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// Everything that is posted, layout and painting included.
void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

QImage pictureOf(QWidget& widget, qreal scale) {
    QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

QString nameOf(const PictureRow& row, Language language, const Picture& picture) {
    const QString translated =
        language == Language::en ? QString() : "." + text(rawValue(language));
    const QString look = picture.appearance == Appearance::light ? "light" : "dark";
    return QString("%1-%2%3-%4@%5x.png")
        .arg(text(row.surface), text(row.state), translated, look)
        .arg(picture.scale);
}

}  // namespace

std::vector<Picture> PictureMaker::draw(const PictureRow& row, Language language) {
    std::vector<Picture> pictures;
    PictureStage stage(language);
    const std::unique_ptr<QWidget> widget = row.make(stage);
    if (!row.size.isEmpty()) widget->resize(row.size);
    // Without a window of the desktop it has neither the focus nor the pointer over it.
    widget->setAttribute(Qt::WA_DontShowOnScreen);
    widget->show();
    for (const Appearance appearance : appearances) {
        Theme::current().follow(std::make_unique<FixedAppearanceSource>(appearance));
        settle();
        for (const qreal scale : scales)
            pictures.push_back({appearance, scale, pictureOf(*widget, scale)});
    }
    return pictures;
}

MadePictures PictureMaker::save(const PictureRow& row, const QString& folder,
                                std::span<const Language> languages) {
    MadePictures made;
    const auto english = draw(row, Language::en);
    std::vector<Language> drawn{Language::en};
    std::ranges::copy_if(languages, std::back_inserter(drawn), [](Language one) {
        return one != Language::automatic && one != Language::en;
    });
    for (const Language language : drawn) {
        const auto pictures = language == Language::en ? english : draw(row, language);
        if (language != Language::en && pictures == english) continue;
        made.languages.push_back(language);
        for (const Picture& picture : pictures) {
            const QString file = QDir(folder).filePath(nameOf(row, language, picture));
            if (!picture.image.save(file)) made.unsaved.push_back(file);
        }
    }
    return made;
}

}  // namespace vtx
