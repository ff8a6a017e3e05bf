// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <optional>

#include "ui/kit/Color.h"
#include "ui/kit/Theme.h"

namespace vtx {

/// The colour of a series, its bars and its symbol: one of the theme's, which changes with the
/// appearance, or one that the user picked, which does not.
class SeriesColor {
public:
    // Both are meant to be written where a series colour is expected.
    // NOLINTNEXTLINE(google-explicit-constructor)
    SeriesColor(ColorToken token) : token_(token) {}
    // NOLINTNEXTLINE(google-explicit-constructor)
    SeriesColor(QColor own) : own_(own) {}

    /// As it is drawn now. Main thread.
    [[nodiscard]] QColor resolved() const { return own_.value_or(Theme::current().color(token_)); }
    [[nodiscard]] QColor resolved(float opacity) const { return withOpacity(resolved(), opacity); }

    bool operator==(const SeriesColor&) const = default;

private:
    ColorToken token_ = ColorToken::text1;
    std::optional<QColor> own_;
};

}  // namespace vtx
