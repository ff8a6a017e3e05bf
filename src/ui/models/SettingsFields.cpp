// SPDX-License-Identifier: MIT
#include "ui/models/SettingsFields.h"

#include <algorithm>

#include "language/Localization.h"

namespace vtx::settings {
namespace {

using enum L10n::Key;
using P = DisplayPreferences;

constexpr std::array live{
    Toggle{"menuBarLiveCPU", {settings_cpuLive}, &P::menuBarLiveCPU},
    Toggle{"menuBarLiveGPU", {settings_gpuLive}, &P::menuBarLiveGPU},
    Toggle{"menuBarLiveMemory", {settings_memoryLive}, &P::menuBarLiveMemory},
    Toggle{"menuBarLiveTemp", {settings_cpuTempLive}, &P::menuBarLiveTemp},
    Toggle{"menuBarLiveDisk", {settings_diskLive}, &P::menuBarLiveDisk},
    Toggle{"menuBarLivePower", {settings_powerLive}, &P::menuBarLivePower},
    Toggle{"menuBarLiveFan", {settings_fanLive}, &P::menuBarLiveFan},
};

constexpr std::array graphs{
    Toggle{"graphsCPU", {settings_graphCPU}, &P::graphsCPU},
    Toggle{"graphsPCore", {settings_graphPCore}, &P::graphsPCore},
    Toggle{"graphsECore", {settings_graphECore}, &P::graphsECore},
    Toggle{"graphsGPU", {settings_graphGPU}, &P::graphsGPU},
    Toggle{"graphsMemory", {settings_graphMemory}, &P::graphsMemory},
    Toggle{"graphsDisk", {settings_graphDisk}, &P::graphsDisk},
    Toggle{"graphsPower", {settings_graphPower}, &P::graphsPower},
};

constexpr std::array others{
    Toggle{"menuBarCompact", {settings_compactMode}, &P::menuBarCompact},
    Toggle{"autoRelieveOnPressure", {settings_autoRelief}, &P::autoRelieveOnPressure},
    Toggle{"hogDetectorEnabled", {settings_hogEnabled}, &P::hogDetectorEnabled},
    Toggle{"miniWidgetEnabled", {settings_widgetEnabled}, &P::miniWidgetEnabled},
    Toggle{settingsRow::launchAtLogin, {settings_launchAtLogin}, &P::launchAtLogin},
};

constexpr std::array tileTable{
    Tile{"cpu", settings_cpu, &P::showCPU},
    Tile{"gpu", settings_gpu, &P::showGPU},
    Tile{"thermal", settings_cpuTemp, &P::showThermal},
    Tile{"memory", settings_memory, &P::showMemory},
    Tile{"disk", settings_disk, &P::showDiskIO},
    Tile{"fan", settings_fan, &P::showFan},
};

const std::array iconTable{
    Icon{"iconCPU",
         {settings_cpu, "CPU"},
         &P::iconCPU,
         {{{"Chip", "cpu"}, {"Grid", "square.grid.3x3.fill"}, {"Pulse", "waveform.path.ecg"}}}},
    Icon{"iconGPU",
         {settings_gpu, "GPU"},
         &P::iconGPU,
         {{{"Chip", "cpu.fill"}, {"Cube", "cube.transparent.fill"}, {"Display", "display"}}}},
    Icon{"iconThermal",
         {settings_cpuTemp},
         &P::iconThermal,
         {{{"Thermometer", "thermometer.medium"}, {"Flame", "flame"}, {"Gauge", "gauge.medium"}}}},
    Icon{"iconMemory",
         {settings_memory},
         &P::iconMemory,
         {{{"Chip", "memorychip.fill"},
           {"Chart", "chart.pie.fill"},
           {"Drive", "internaldrive.fill"}}}},
    Icon{"iconDisk",
         {settings_disk},
         &P::iconDisk,
         {{{"Internal", "internaldrive"},
           {"External", "externaldrive"},
           {"Optical", "opticaldisc"}}}},
    Icon{"iconFan",
         {settings_fan},
         &P::iconFan,
         {{{"Fan", "fan"}, {"Auto", "fan.badge.automatic"}, {"Wind", "wind"}}}},
};

const std::array colorTable{
    Color{"colorCPU", {settings_cpu, "CPU"}, &P::colorCPU, SeriesRole::cpu},
    Color{"colorPCore", {settings_graphPCore}, &P::colorPCore, SeriesRole::pCore},
    Color{"colorECore", {settings_graphECore}, &P::colorECore, SeriesRole::eCore},
    Color{"colorGPU", {settings_gpu, "GPU"}, &P::colorGPU, SeriesRole::gpu},
    Color{"colorMemory", {settings_memory}, &P::colorMemory, SeriesRole::memory},
    Color{"colorDisk", {settings_disk}, &P::colorDisk, SeriesRole::cyan},
    Color{"colorPower", {settings_power}, &P::colorPower, SeriesRole::yellow},
};

constexpr std::array alertTable{
    Alert{"alertCPUEnabled", {settings_cpu, "CPU"}, &P::alertCPUEnabled, SliderField::alertCPU},
    Alert{"alertGPUEnabled", {settings_gpu, "GPU"}, &P::alertGPUEnabled, SliderField::alertGPU},
    Alert{
        "alertMemoryEnabled", {settings_memory}, &P::alertMemoryEnabled, SliderField::alertMemory},
    Alert{"alertPressureEnabled", {settings_alertPressure}, &P::alertPressureEnabled, {}},
    Alert{"alertTempEnabled",
          {system_batteryTemperature},
          &P::alertTempEnabled,
          SliderField::alertTemperature},
    Alert{"alertDiskEnabled", {settings_disk}, &P::alertDiskEnabled, SliderField::alertDisk},
    Alert{"alertFanEnabled", {settings_fan}, &P::alertFanEnabled, SliderField::alertFan},
};

// In the order of the enumeration.
constexpr std::array sliders{
    SliderBinding{SliderField::alertCPU, &P::alertCPUThreshold, 100, 50, 100, 1, 1, "%", 60},
    SliderBinding{SliderField::alertGPU, &P::alertGPUThreshold, 100, 50, 100, 1, 1, "%", 60},
    SliderBinding{SliderField::alertMemory, &P::alertMemoryThreshold, 100, 50, 100, 1, 1, "%", 60},
    SliderBinding{SliderField::alertTemperature, &P::alertTempCelsius, 1, 60, 100, 1, 1, "°C", 60},
    SliderBinding{SliderField::alertDisk, &P::alertDiskThreshold, 100, 50, 100, 1, 1, "%", 60},
    SliderBinding{SliderField::alertFan, nullptr, 1, 2000, 7000, 100, 1, " RPM", 80},
    SliderBinding{SliderField::hogCPU, &P::hogCPUThreshold, 100, 5, 100, 5, 1, "%", 50},
    SliderBinding{SliderField::hogDuration, &P::hogMinDurationSeconds, 1, 60, 1800, 30, 60, " min",
                  50},
};

template <class Rows>
std::optional<BoolField> fieldIn(const Rows& rows, std::string_view id) {
    const auto found = std::ranges::find_if(rows, [id](const auto& row) { return row.id == id; });
    return found == std::ranges::end(rows) ? std::nullopt : std::optional(found->field);
}

}  // namespace

std::string say(const Label& label) {
    return std::string(label.text.empty() ? Localization::shared().string(label.key) : label.text);
}

std::span<const Toggle> liveToggles() { return live; }
std::span<const Toggle> graphToggles() { return graphs; }
std::span<const Toggle> otherToggles() { return others; }
std::span<const Icon> icons() { return iconTable; }
std::span<const Color> colors() { return colorTable; }
std::span<const Alert> alerts() { return alertTable; }

std::optional<BoolField> toggleField(std::string_view id) {
    if (const auto field = fieldIn(live, id)) return field;
    if (const auto field = fieldIn(graphs, id)) return field;
    if (const auto field = fieldIn(others, id)) return field;
    if (const auto field = fieldIn(alertTable, id)) return field;
    return fieldIn(tileTable, id);
}

const Tile* tile(std::string_view id) {
    const auto found = std::ranges::find(tileTable, id, &Tile::id);
    return found == tileTable.end() ? nullptr : &*found;
}

const SliderBinding& slider(SliderField field) {
    return sliders.at(static_cast<std::size_t>(field));
}

}  // namespace vtx::settings
