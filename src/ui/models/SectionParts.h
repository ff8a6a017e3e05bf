// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// What several sections are made of, as plain values. Texts are as they are shown.
namespace vtx {

/// A colour of the interface by what it stands for; which value that is, the theme in force knows.
enum class Hue : std::uint8_t {
    primary,    ///< values and titles
    secondary,  ///< labels
    tertiary,   ///< captions, and what is not in use
    accent,
    cpu,
    pCore,
    eCore,
    gpu,
    memory,
    cyan,
    green,
    yellow,
    orange,
    red,
};

/// The one large figure of a page.
struct HeroModel {
    std::string title;
    std::string value;
    Hue hue = Hue::primary;
    std::string note;  ///< at the other end; may be empty

    friend bool operator==(const HeroModel&, const HeroModel&) = default;
};

/// One of two figures side by side.
struct FigureModel {
    std::string symbol;  ///< empty for none
    std::string title;
    std::string value;
    Hue hue = Hue::primary;
    std::string noteTitle;  ///< before the note; may be empty, as the note
    std::string note;

    friend bool operator==(const FigureModel&, const FigureModel&) = default;
};

/// What something is called, and what it is.
struct KeyValueModel {
    std::string title;
    std::string value;

    friend bool operator==(const KeyValueModel&, const KeyValueModel&) = default;
};

/// A card of rows under a title.
struct KeyValueCardModel {
    std::string title;  ///< may be empty
    std::vector<KeyValueModel> rows;

    friend bool operator==(const KeyValueCardModel&, const KeyValueCardModel&) = default;
};

/// What stands in the place of figures that there are none of.
struct PlaceholderModel {
    std::string symbol;
    std::string title;
    std::string body;  ///< may be empty

    friend bool operator==(const PlaceholderModel&, const PlaceholderModel&) = default;
};

/// A word in a colour that means the same.
struct PillModel {
    std::string text;
    Hue hue = Hue::primary;

    friend bool operator==(const PillModel&, const PillModel&) = default;
};

/// `value` where it is a number within 0.0 and 1.0, its nearest bound beyond them, 0.0 for none.
[[nodiscard]] constexpr double drawnFraction(double value) {
    if (!(value > 0.0)) return 0.0;
    return value < 1.0 ? value : 1.0;
}

}  // namespace vtx
