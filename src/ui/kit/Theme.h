// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QObject>
#include <memory>

#include "ui/kit/Color.h"

namespace vtx {

class AppearanceSource;

/// The colours that are shown now. One for the application, on the main thread. It follows its
/// source; where the environment variable VANTRIX_APPEARANCE says `light` or `dark`, that holds
/// instead.
class Theme final : public QObject {
    Q_OBJECT

public:
    Theme();
    ~Theme() override;

    /// The application's theme, made on first use; follows the palette until told otherwise.
    [[nodiscard]] static Theme& current();

    /// Takes over `source` and shows what it says from now on.
    void follow(std::unique_ptr<AppearanceSource> source);

    [[nodiscard]] Appearance appearance() const { return appearance_; }
    [[nodiscard]] QColor color(ColorToken token) const { return tokenColor(token, appearance_); }
    [[nodiscard]] QColor color(ColorToken token, float opacity) const {
        return withOpacity(color(token), opacity);
    }

Q_SIGNALS:
    /// After the colours changed; never when they stay the same.
    void changed();

private:
    void refresh();

    std::unique_ptr<AppearanceSource> source_;
    Appearance appearance_ = Appearance::dark;
};

}  // namespace vtx
