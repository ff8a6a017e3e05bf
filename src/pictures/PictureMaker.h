// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <span>
#include <vector>

#include "language/Language.h"
#include "pictures/PictureTable.h"
#include "ui/kit/Color.h"

namespace vtx {

/// One picture of a surface.
struct Picture {
    Appearance appearance;
    qreal scale;  ///< device pixels to a logical one
    QImage image;

    friend bool operator==(const Picture&, const Picture&) = default;
};

/// In which languages a row's pictures are its own.
struct MadePictures {
    std::vector<Language> languages;  ///< without those that look as in English
    std::vector<QString> unsaved;     ///< files that could not be written
};

/// Draws rows without a display and saves what it drew. Main thread; changes the application's
/// theme.
class PictureMaker {
public:
    /// Pictures of a row in one language, in every appearance and scale.
    [[nodiscard]] static std::vector<Picture> draw(const PictureRow& row, Language language);

    /// Saves a row's pictures in English and in each of these where they look different, as
    /// "strip-usual-dark@2x.png" and "strip-usual.de-dark@2x.png", in a folder that is there.
    [[nodiscard]] static MadePictures save(const PictureRow& row, const QString& folder,
                                           std::span<const Language> languages = allLanguages);
};

}  // namespace vtx
