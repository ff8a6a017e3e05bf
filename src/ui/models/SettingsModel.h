// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/DisplayPreferences.h"
#include "ui/models/ChartTints.h"

namespace vtx {

/// What the settings are drawn from. The preferences must outlive the call that is given it.
struct SettingsReadings {
    const DisplayPreferences& preferences;
    bool isNotificationPermitted = true;
    /// What the system says of the login item, whatever the preference wishes.
    bool isLoginItemEnabled = false;
    /// Absent where updates come with the system.
    std::optional<bool> updatesAutomatically = std::nullopt;
    bool isCheckingForUpdates = false;
    /// Empty where the application was built without one.
    std::string version = {};
    std::string build = {};
};

/// The sliders, by what they set.
enum class SliderField {
    alertCPU,
    alertGPU,
    alertMemory,
    alertTemperature,
    alertDisk,
    alertFan,
    hogCPU,
    hogDuration
};

struct SliderModel {
    SliderField field = SliderField::alertCPU;
    double value = 0;
    double min = 0;
    double max = 0;
    double step = 1;
    std::string text;
    int textWidth = 0;
    bool isShown = true;

    friend bool operator==(const SliderModel&, const SliderModel&) = default;
};

struct ChoiceModel {
    std::string label;
    std::string symbol = {};

    friend bool operator==(const ChoiceModel&, const ChoiceModel&) = default;
};

struct TileModel {
    std::string id;
    std::string label;
    /// What assistive technology calls the row.
    std::string spoken;
    /// Absent for a tile that has no switch.
    std::optional<bool> isOn;

    friend bool operator==(const TileModel&, const TileModel&) = default;
};

enum class SettingsRowKind {
    toggle,        ///< with a slider below, where it has a threshold, which is shown while it is on
    tiles,         ///< the list of tiles
    menu,          ///< choices in a menu
    segments,      ///< choices side by side
    historyRange,  ///< the picker of the charts' window
    presets,       ///< a button for each choice
    color,
    slider,
    note,
    value,
    button
};

/// One row: `id` tells which, and is what the acts below are given.
struct SettingsRow {
    SettingsRowKind kind = SettingsRowKind::toggle;
    std::string_view id;
    std::string label = {};
    bool isShown = true;
    bool isEnabled = true;
    bool isOn = false;
    /// Below the row, in which "**" begins and ends what is emphasised; or the note itself.
    std::string note = {};
    std::optional<SliderModel> slider = std::nullopt;
    std::vector<ChoiceModel> choices = {};
    /// -1 where none of the choices holds.
    int chosen = -1;
    std::vector<TileModel> tiles = {};
    SeriesTint color = {};
    /// There is an override to take back.
    bool canReset = false;
    /// Of a labelled value.
    std::string value = {};
    /// Of a button.
    std::string symbol = {};
    /// Why it is disabled.
    std::string tip = {};

    friend bool operator==(const SettingsRow&, const SettingsRow&) = default;
};

struct SettingsSection {
    std::string title;
    std::string footer = {};
    /// In front of the footer, for a warning.
    std::string footerSymbol = {};
    std::vector<SettingsRow> rows = {};

    friend bool operator==(const SettingsSection&, const SettingsSection&) = default;
};

/// All that the settings say, in their order.
struct SettingsModel {
    std::vector<SettingsSection> sections;

    friend bool operator==(const SettingsModel&, const SettingsModel&) = default;
};

/// The rows that do more than change a preference.
namespace settingsRow {
inline constexpr std::string_view launchAtLogin = "launchAtLogin";
inline constexpr std::string_view exportCSV = "exportCSV";
inline constexpr std::string_view checkUpdates = "checkUpdates";
inline constexpr std::string_view autoUpdate = "autoUpdate";
}  // namespace settingsRow

/// Texts in the language in force.
[[nodiscard]] SettingsModel describeSettings(const SettingsReadings& readings);

/// The buttons of a tile's row, in every language.
inline constexpr std::string_view moveUpName = "Move up";
inline constexpr std::string_view moveDownName = "Move down";
/// The tooltip of a colour's reset, in every language.
inline constexpr std::string_view resetColorTip = "Auf Standard zurücksetzen";
/// Why the controls of updates are disabled, in every language.
inline constexpr std::string_view updatesBySystemTip = "Updates come with the system.";

}  // namespace vtx
