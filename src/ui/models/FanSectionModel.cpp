// SPDX-License-Identifier: MIT
#include "ui/models/FanSectionModel.h"

#include <fmt/format.h>

#include <cmath>

#include "fan/FanStats.h"
#include "ui/models/SectionText.h"

namespace vtx {
namespace {

using Key = L10n::Key;

std::optional<FanGaugeModel> gaugeOf(const FanReading& fan, const Localization& texts) {
    if (!fan.minRPM || !fan.maxRPM) return std::nullopt;
    FanGaugeModel gauge{fan.currentRPM, fan.targetRPM, *fan.minRPM, *fan.maxRPM, {}, {}, {}, {}};
    gauge.minText = std::to_string(gauge.min);
    gauge.maxText = std::to_string(gauge.max);
    if (gauge.target)
        gauge.targetText = fmt::format("{} {}", text(texts, Key::fan_target), *gauge.target);
    // "Min" and "Max" are the same in every language, as they are below the charts.
    gauge.spoken = fmt::format("Min {}, ", gauge.minText);
    if (gauge.target) gauge.spoken += gauge.targetText + ", ";
    gauge.spoken += fmt::format("Max {}", gauge.maxText);
    return gauge;
}

FanCardModel cardOf(const FanReading& fan, const Localization& texts) {
    return {
        "fan",
        fmt::format("{} {}", text(texts, Key::fan_label), static_cast<long long>(fan.index) + 1),
        fmt::format("{} RPM", fan.currentRPM), gaugeOf(fan, texts)};
}

std::vector<FigureModel> summaryOf(const FanStats& reading, const Localization& texts) {
    std::vector<FigureModel> summary{{"", text(texts, Key::fan_currentRPM),
                                      std::to_string(reading.maxRPM().value_or(0)), Hue::cyan, "",
                                      ""}};
    // Cut, not rounded: a load reads 100 only where every fan runs at its limit.
    if (const auto load = reading.averageLoad())
        summary.push_back({"", text(texts, Key::fan_load),
                           fmt::format("{:.0f} %", std::trunc(*load * 100.0)), Hue::orange, "",
                           ""});
    return summary;
}

}  // namespace

FanSectionModel describeFanSection(const FanStats& reading, const Localization& texts) {
    FanSectionModel model;
    if (reading.fans.empty()) {
        model.placeholder = PlaceholderModel{"fan.slash", text(texts, Key::fan_unavailable), ""};
        return model;
    }
    model.summary = summaryOf(reading, texts);
    model.fans.reserve(reading.fans.size());
    for (const FanReading& fan : reading.fans) model.fans.push_back(cardOf(fan, texts));
    return model;
}

}  // namespace vtx
