// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

#include "core/DisplayPreferences.h"
#include "language/L10n.h"
#include "ui/models/ChartTints.h"
#include "ui/models/SettingsModel.h"

/// Which control is bound to which preference. Shared by the description of the settings and by
/// their acts, so that a control cannot show one field and change another.
namespace vtx::settings {

using BoolField = bool DisplayPreferences::*;
using TextField = std::string DisplayPreferences::*;
using RealField = double DisplayPreferences::*;

/// A label: of the catalogue, or fixed where `text` is not empty.
struct Label {
    L10n::Key key = L10n::Key::settings_cpu;
    std::string_view text = {};
};
[[nodiscard]] std::string say(const Label& label);

struct Toggle {
    std::string_view id;
    Label label;
    BoolField field;
};
/// All switches that are bound to a preference, but those of tiles.
[[nodiscard]] std::span<const Toggle> liveToggles();
[[nodiscard]] std::span<const Toggle> graphToggles();
[[nodiscard]] std::span<const Toggle> otherToggles();
/// Of those above and the alerts' and the tiles'.
[[nodiscard]] std::optional<BoolField> toggleField(std::string_view id);

struct Tile {
    std::string_view id;
    L10n::Key label;
    BoolField field;
};
/// Null for a tile without a switch.
[[nodiscard]] const Tile* tile(std::string_view id);

struct IconChoice {
    std::string_view label;
    std::string_view symbol;
};
struct Icon {
    std::string_view id;
    Label label;
    TextField field;
    std::array<IconChoice, 3> choices;
};
[[nodiscard]] std::span<const Icon> icons();

struct Color {
    std::string_view id;
    Label label;
    TextField field;
    SeriesRole role;
};
[[nodiscard]] std::span<const Color> colors();

/// A row of the alerts; without a slider it is a plain switch.
struct Alert {
    std::string_view id;
    Label label;
    BoolField field;
    std::optional<SliderField> slider;
};
[[nodiscard]] std::span<const Alert> alerts();

struct SliderBinding {
    SliderField id;
    /// Null for the fan's, which is whole.
    RealField field;
    double scale;
    double min, max, step;
    /// How the text divides the slider's value, and what stands behind it.
    double divisor;
    std::string_view unit;
    int textWidth;
};
[[nodiscard]] const SliderBinding& slider(SliderField field);

inline constexpr std::array intervals{0.5, 1.0, 2.0};
inline constexpr std::array<std::string_view, 3> intervalLabels{"0,5 s", "1 s", "2 s"};

inline constexpr std::string_view intervalID = "refreshIntervalSeconds";
inline constexpr std::string_view presetID = "preset";
inline constexpr std::string_view chartStyleID = "chartStyle";
inline constexpr std::string_view languageID = "languageCode";

}  // namespace vtx::settings
