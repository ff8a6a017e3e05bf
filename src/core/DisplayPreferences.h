// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vtx {

class UserDefaults;

/// Everything that the user can set, as one plain value. The published copy belongs to the
/// coordinator and to the main executor; what is stored is a JSON object with one member per field,
/// named as the field. A new field needs its line in PreferencesFields.h as well.
struct DisplayPreferences {
    /// The visible window of the charts and of the exported history. Raw value: the case's name.
    enum class HistoryRange { oneMinute, fiveMinutes, fifteenMinutes, oneHour };
    /// How a history is drawn. Raw value: the case's name.
    enum class ChartStyle { line, area, bar };
    /// The sets of preferences that are offered ready-made. Raw value: the case's name.
    enum class Preset { minimal, balanced, powerUser };

    static constexpr std::array allHistoryRanges{HistoryRange::oneMinute, HistoryRange::fiveMinutes,
                                                 HistoryRange::fifteenMinutes,
                                                 HistoryRange::oneHour};
    static constexpr std::array allChartStyles{ChartStyle::line, ChartStyle::area, ChartStyle::bar};
    static constexpr std::array allPresets{Preset::minimal, Preset::balanced, Preset::powerUser};

    /// The tiles of the strip. Power has none, though it has an icon, a live flag and an alert.
    static constexpr std::array<std::string_view, 7> knownTileIDs{
        "cpu", "gpu", "thermal", "memory", "disk", "fan", "ane"};

    /// Bounds of `refreshIntervalSeconds`, applied when a record is loaded.
    static constexpr double minRefreshIntervalSeconds = 0.5;
    static constexpr double maxRefreshIntervalSeconds = 2.0;

    /// Where a record is stored, newest generation first. Only the first is ever written; the
    /// others are read where it is missing or damaged, and stay as they are.
    static constexpr std::array<std::string_view, 3> storedKeys{
        "displayPreferences.v3", "displayPreferences.v2", "displayPreferences.v1"};

    // Metrics shown. They also keep a metric sampled while no surface is open.
    bool showCPU = true;
    bool showGPU = false;
    bool showThermal = true;
    bool showMemory = true;
    bool showDiskIO = false;
    bool showPower = false;
    bool showFan = false;
    bool showANE = true;

    // Tiles with a live value beside their icon.
    bool menuBarLiveCPU = true;
    bool menuBarLiveGPU = true;
    bool menuBarLiveMemory = true;
    bool menuBarLiveTemp = true;
    bool menuBarLiveDisk = true;
    bool menuBarLivePower = true;
    bool menuBarLiveFan = true;
    bool menuBarLiveANE = true;

    // Symbol names of the tiles.
    std::string iconCPU = "cpu";
    std::string iconGPU = "cpu.fill";
    std::string iconThermal = "thermometer.medium";
    std::string iconMemory = "memorychip.fill";
    std::string iconDisk = "internaldrive";
    std::string iconPower = "bolt.fill";
    std::string iconFan = "fan";
    std::string iconANE = "brain";

    /// Tiles from left to right.
    std::vector<std::string> menuBarOrder{"cpu", "gpu", "thermal", "memory", "disk", "fan", "ane"};
    /// The strip shows the critical metric only.
    bool menuBarCompact = false;
    /// Which of several equally critical metrics is shown, most wanted first. May be empty.
    std::vector<std::string> compactPriority{"thermal", "memory", "cpu", "fan", "gpu", "disk"};

    /// Base polling interval. A loaded one lies within the bounds above.
    double refreshIntervalSeconds = 1.0;
    bool autoRelieveOnPressure = false;
    bool launchAtLogin = false;

    // Charts shown in the sections of their metrics.
    bool graphsCPU = true;
    bool graphsPCore = true;
    bool graphsECore = true;
    bool graphsGPU = true;
    bool graphsMemory = true;
    bool graphsDisk = false;
    bool graphsPower = false;
    bool graphsANE = true;
    ChartStyle chartStyle = ChartStyle::area;
    HistoryRange historyRange = HistoryRange::oneMinute;

    // Colours of the series in hexadecimal; empty for the theme's own.
    std::string colorCPU;
    std::string colorPCore;
    std::string colorECore;
    std::string colorGPU;
    std::string colorMemory;
    std::string colorDisk;
    std::string colorPower;
    std::string colorANE;

    // Alerts. A threshold without a unit in its name is a fraction of 1.
    bool alertCPUEnabled = false;
    double alertCPUThreshold = 0.9;
    bool alertGPUEnabled = false;
    double alertGPUThreshold = 0.9;
    bool alertMemoryEnabled = false;
    double alertMemoryThreshold = 0.9;
    bool alertPressureEnabled = false;
    bool alertTempEnabled = false;
    double alertTempCelsius = 90.0;
    bool alertDiskEnabled = false;
    double alertDiskThreshold = 0.85;
    bool alertPowerEnabled = false;
    double alertPowerWatts = 35.0;
    bool alertFanEnabled = false;
    std::int64_t alertFanRPM = 4500;
    bool alertANEEnabled = false;
    double alertANEThreshold = 0.85;

    bool miniWidgetEnabled = false;
    /// Saved origin of the mini widget; negative while none was saved.
    double miniWidgetX = -1.0;
    double miniWidgetY = -1.0;

    /// Raw value of a language. An unknown one is kept and shown as English.
    std::string languageCode = "en";
    /// The first start's choice of a language was made. Any stored record counts as that.
    bool hasCompletedFirstRunLanguage = false;

    bool hogDetectorEnabled = false;
    /// Fraction of a core.
    double hogCPUThreshold = 0.15;
    double hogMinDurationSeconds = 300.0;

    /// The preferences of a first start.
    [[nodiscard]] static const DisplayPreferences& defaults();

    /// The newest stored record that decodes, its interval brought within bounds; the defaults
    /// where there is none. Writes nothing.
    [[nodiscard]] static DisplayPreferences load(const UserDefaults& store);

    /// Stores the record under the newest key. One that JSON cannot hold (a float that is not
    /// finite, a text that is not UTF-8) is dropped, and what was stored stays.
    void save(UserDefaults& store) const;

    /// A copy with the preset applied: `minimal` and `powerUser` set what they are about and keep
    /// the rest, `balanced` resets all but what is personal to the machine and its user.
    [[nodiscard]] DisplayPreferences applyingPreset(Preset preset) const;

    bool operator==(const DisplayPreferences&) const = default;
};

[[nodiscard]] std::string_view rawValue(DisplayPreferences::HistoryRange range);
[[nodiscard]] std::string_view rawValue(DisplayPreferences::ChartStyle style);
[[nodiscard]] std::string_view rawValue(DisplayPreferences::Preset preset);

/// The case with that raw value; absent where no case has it.
[[nodiscard]] std::optional<DisplayPreferences::HistoryRange> historyRangeFromRawValue(
    std::string_view raw);
[[nodiscard]] std::optional<DisplayPreferences::ChartStyle> chartStyleFromRawValue(
    std::string_view raw);
[[nodiscard]] std::optional<DisplayPreferences::Preset> presetFromRawValue(std::string_view raw);

/// Length of the window in seconds.
[[nodiscard]] double seconds(DisplayPreferences::HistoryRange range);

}  // namespace vtx
