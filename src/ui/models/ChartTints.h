// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vtx {

/// A colour that the user chose: sRGB, opaque, 0 to 255.
struct RGBColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const RGBColor&, const RGBColor&) = default;
};

/// The theme's colours that a series can have. Which value that is, the theme in force knows.
enum class SeriesRole : std::uint8_t {
    cpu,
    pCore,
    eCore,
    gpu,
    memory,
    cyan,    ///< what is read or received
    orange,  ///< what is written or sent
    yellow,  ///< power
    accent,
};

/// The colour of a series: the theme's for its role, or the user's own, the same in each theme.
struct SeriesTint {
    SeriesRole role = SeriesRole::cpu;
    std::optional<RGBColor> own = std::nullopt;

    friend bool operator==(const SeriesTint&, const SeriesTint&) = default;
};

namespace ChartTints {

/// The colour of six hexadecimal digits, wherever "#" stands among them and whatever space is
/// around; `fallback` for every other text, the empty one of the defaults among them.
[[nodiscard]] SeriesTint color(std::string_view hex, SeriesTint fallback);

}  // namespace ChartTints

}  // namespace vtx
