// SPDX-License-Identifier: MIT
#include "ui/models/SettingsModel.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "language/Localization.h"
#include "ui/models/Formatters.h"
#include "ui/models/SettingsFields.h"
#include "ui/models/UpdateNotice.h"

namespace vtx {
namespace {

using enum L10n::Key;
using P = DisplayPreferences;
using Kind = SettingsRowKind;
using Rows = std::vector<SettingsRow>;

std::string say(L10n::Key key) { return std::string(Localization::shared().string(key)); }

/// Far beyond any bound, where whole numbers are still exact.
double bounded(double value) {
    constexpr double most = 1e15;
    return std::clamp(value, -most, most);
}

std::string wholeNumber(double value, std::string_view unit) {
    if (std::isnan(value)) return std::string(emptyMark);
    return fmt::format("{}{}", std::llround(bounded(value)), unit);
}

SliderModel sliderOf(const P& preferences, SliderField field) {
    const settings::SliderBinding& bound = settings::slider(field);
    const double value = bound.field ? preferences.*bound.field * bound.scale
                                     : static_cast<double>(preferences.alertFanRPM);
    return {.field = field,
            .value = value,
            .min = bound.min,
            .max = bound.max,
            .step = bound.step,
            .text = bound.field ? wholeNumber(value / bound.divisor, bound.unit)
                                : fmt::format("{}{}", preferences.alertFanRPM, bound.unit),
            .textWidth = bound.textWidth};
}

SettingsRow toggleRow(const P& preferences, const settings::Toggle& toggle) {
    return {
        .id = toggle.id, .label = settings::say(toggle.label), .isOn = preferences.*(toggle.field)};
}

SettingsRow otherToggle(const P& preferences, std::string_view id, std::string note = {}) {
    const auto all = settings::otherToggles();
    SettingsRow row = toggleRow(preferences, *std::ranges::find(all, id, &settings::Toggle::id));
    row.note = std::move(note);
    return row;
}

Rows toggleRows(const P& preferences, std::span<const settings::Toggle> toggles) {
    Rows rows;
    for (const auto& toggle : toggles) rows.push_back(toggleRow(preferences, toggle));
    return rows;
}

TileModel tileOf(const P& preferences, const std::string& id) {
    const settings::Tile* known = settings::tile(id);
    if (known) return {id, say(known->label), say(known->label), preferences.*(known->field)};
    return {id, {}, id == "ane" ? say(settings_ane) : id, std::nullopt};
}

SettingsRow tileRow(const P& preferences) {
    SettingsRow row{.kind = Kind::tiles, .id = "menuBarOrder"};
    for (const auto& id : preferences.menuBarOrder) row.tiles.push_back(tileOf(preferences, id));
    return row;
}

/// The place of `value`, -1 where it is not among them.
template <class Values, class Value, class Projection = std::identity>
int placeOf(const Values& values, const Value& value, Projection projection = {}) {
    const auto found = std::ranges::find(values, value, projection);
    return found == std::ranges::end(values) ? -1
                                             : static_cast<int>(found - std::ranges::begin(values));
}

Rows iconRows(const P& preferences) {
    Rows rows;
    for (const auto& icon : settings::icons()) {
        SettingsRow row{.kind = Kind::menu, .id = icon.id, .label = settings::say(icon.label)};
        for (const auto& choice : icon.choices)
            row.choices.push_back({std::string(choice.label), std::string(choice.symbol)});
        row.chosen =
            placeOf(icon.choices, preferences.*(icon.field), &settings::IconChoice::symbol);
        rows.push_back(std::move(row));
    }
    return rows;
}

SettingsRow presetRow() {
    return {.kind = Kind::presets,
            .id = settings::presetID,
            .choices = {{"Minimal"}, {"Balanced"}, {"Power User"}}};
}

SettingsRow intervalRow(const P& preferences) {
    SettingsRow row{
        .kind = Kind::segments, .id = settings::intervalID, .label = say(settings_updateInterval)};
    for (const auto label : settings::intervalLabels) row.choices.push_back({std::string(label)});
    row.chosen = placeOf(settings::intervals, preferences.refreshIntervalSeconds);
    return row;
}

Rows graphRows(const P& preferences) {
    Rows rows = toggleRows(preferences, settings::graphToggles());
    rows.push_back({.kind = Kind::segments,
                    .id = settings::chartStyleID,
                    .label = say(settings_chartStyle),
                    .choices = {{say(settings_chartLine)},
                                {say(settings_chartArea)},
                                {say(settings_chartBar)}},
                    .chosen = placeOf(P::allChartStyles, preferences.chartStyle)});
    rows.push_back({.kind = Kind::historyRange, .id = "historyRange"});
    return rows;
}

Rows colorRows(const P& preferences) {
    Rows rows;
    for (const auto& color : settings::colors()) {
        const std::string& hex = preferences.*(color.field);
        rows.push_back({.kind = Kind::color,
                        .id = color.id,
                        .label = settings::say(color.label),
                        .color = ChartTints::color(hex, {color.role}),
                        .canReset = !hex.empty()});
    }
    return rows;
}

Rows alertRows(const P& preferences) {
    Rows rows;
    for (const auto& alert : settings::alerts()) {
        SettingsRow row{.id = alert.id,
                        .label = settings::say(alert.label),
                        .isOn = preferences.*(alert.field)};
        if (alert.slider) row.slider = sliderOf(preferences, *alert.slider);
        if (row.slider) row.slider->isShown = row.isOn;
        rows.push_back(std::move(row));
    }
    return rows;
}

SettingsSection alertSection(const SettingsReadings& readings) {
    SettingsSection section{.title = say(settings_alerts), .footer = say(settings_alertsFooter)};
    section.rows = alertRows(readings.preferences);
    if (readings.isNotificationPermitted) return section;
    section.footer = say(settings_alertsDenied);
    // Drawn as a symbol: not every face has the sign, and some have it in colours of their own.
    constexpr std::string_view sign = "⚠️ ";
    if (section.footer.starts_with(sign)) {
        section.footer.erase(0, sign.size());
        section.footerSymbol = "exclamationmark.triangle.fill";
    }
    return section;
}

SettingsRow hogSlider(const P& preferences, SliderField field, L10n::Key label,
                      std::string_view id) {
    return {.kind = Kind::slider,
            .id = id,
            .label = say(label),
            .isShown = preferences.hogDetectorEnabled,
            .slider = sliderOf(preferences, field)};
}

Rows hogRows(const P& preferences) {
    return {
        otherToggle(preferences, "hogDetectorEnabled"),
        hogSlider(preferences, SliderField::hogCPU, settings_hogCPUThreshold, "hogCPUThreshold"),
        hogSlider(preferences, SliderField::hogDuration, settings_hogMinDuration,
                  "hogMinDurationSeconds"),
        {.kind = Kind::note, .id = "hogBody", .note = say(settings_hogBody)}};
}

SettingsRow languageRow(const P& preferences) {
    SettingsRow row{
        .kind = Kind::menu, .id = settings::languageID, .label = say(settings_language)};
    const Language display = *Localization::shared().effective;
    for (const Language language : allLanguages)
        row.choices.push_back({std::string(displayLabel(language, display))});
    row.chosen = placeOf(allLanguages, languageFromStoredCode(preferences.languageCode));
    return row;
}

SettingsRow loginRow(const SettingsReadings& readings) {
    SettingsRow row = otherToggle(readings.preferences, settingsRow::launchAtLogin);
    row.isOn = readings.isLoginItemEnabled;
    return row;
}

SettingsRow valueRow(std::string_view id, L10n::Key label, const std::string& value) {
    return {.kind = Kind::value,
            .id = id,
            .label = say(label),
            .value = value.empty() ? std::string(emptyMark) : value};
}

Rows aboutRows(const SettingsReadings& readings) {
    const bool updates = readings.updatesAutomatically.has_value();
    const std::string tip = updates ? std::string() : std::string(updatesBySystemTip);
    return {valueRow("version", settings_version, readings.version),
            valueRow("build", settings_build, readings.build),
            {.kind = Kind::button,
             .id = settingsRow::checkUpdates,
             .label = say(settings_checkUpdates),
             .isEnabled = updates,
             .note = std::string(readings.isCheckingForUpdates ? checkingForUpdates : ""),
             .symbol = "arrow.down.circle",
             .tip = tip},
            {.id = settingsRow::autoUpdate,
             .label = say(settings_autoUpdate),
             .isEnabled = updates,
             .isOn = readings.updatesAutomatically.value_or(false),
             .tip = tip}};
}

}  // namespace

SettingsModel describeSettings(const SettingsReadings& readings) {
    const P& p = readings.preferences;
    const SettingsRow exportRow{.kind = Kind::button,
                                .id = settingsRow::exportCSV,
                                .label = say(settings_exportCSV),
                                .symbol = "square.and.arrow.up"};
    SettingsModel model;
    const auto add = [&model](std::string title, std::string footer, Rows rows) {
        model.sections.push_back(
            {.title = std::move(title), .footer = std::move(footer), .rows = std::move(rows)});
    };
    add(say(settings_compactModeHeader), {},
        {otherToggle(p, "menuBarCompact", say(settings_compactModeFooter))});
    add(say(settings_menuBarTiles), say(settings_menuBarTilesFooterDragDrop), {tileRow(p)});
    add(say(settings_menuBarLive), say(settings_menuBarLiveFooter),
        toggleRows(p, settings::liveToggles()));
    add("Icons", say(settings_iconsFooter), iconRows(p));
    add("Presets", say(settings_presetsFooter), {presetRow()});
    add(say(settings_updates), {}, {intervalRow(p)});
    add(say(settings_graphs), {}, graphRows(p));
    add(say(settings_colors), say(settings_colorsFooter), colorRows(p));
    model.sections.push_back(alertSection(readings));
    add(say(settings_memorySection), {},
        {otherToggle(p, "autoRelieveOnPressure", say(settings_autoReliefBody))});
    add(say(settings_hogHeader), {}, hogRows(p));
    add(say(settings_widget), {}, {otherToggle(p, "miniWidgetEnabled", say(settings_widgetBody))});
    add(say(settings_language), say(settings_languageFooter), {languageRow(p)});
    add(say(settings_startup), {}, {loginRow(readings)});
    add(say(settings_data), say(settings_exportCSVFooter), {exportRow});
    add(say(settings_about), say(settings_aboutFooter), aboutRows(readings));
    return model;
}

}  // namespace vtx
