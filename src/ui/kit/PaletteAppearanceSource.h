// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "ui/kit/AppearanceSource.h"

namespace vtx {

/// Light or dark by the window colour of the application's palette, which the toolkit's desktop
/// integration sets and keeps current. For desktops that tell nothing more exact.
class PaletteAppearanceSource final : public QObject, public AppearanceSource {
public:
    PaletteAppearanceSource();

    [[nodiscard]] Appearance appearance() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// An appearance that somebody sets: a test, a picture, a fixed choice of the user.
class FixedAppearanceSource final : public AppearanceSource {
public:
    explicit FixedAppearanceSource(Appearance appearance) : appearance_(appearance) {}

    [[nodiscard]] Appearance appearance() const override { return appearance_; }
    void set(Appearance appearance);

private:
    Appearance appearance_;
};

}  // namespace vtx
