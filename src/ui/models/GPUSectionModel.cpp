// SPDX-License-Identifier: MIT
#include "ui/models/GPUSectionModel.h"

#include "ui/models/ChartRange.h"
#include "ui/models/Formatters.h"
#include "ui/models/SectionText.h"

namespace vtx {
namespace {

using Key = L10n::Key;

}  // namespace

GPUSectionModel describeGPUSection(const GPUSectionReadings& readings,
                                   const DisplayPreferences& preferences,
                                   const Localization& texts) {
    GPUSectionModel model;
    if (!readings.isAvailable) {
        model.placeholder = PlaceholderModel{"display.trianglebadge.exclamationmark",
                                             text(texts, Key::gpu_unavailableTitle),
                                             text(texts, Key::gpu_unavailableBody)};
        return model;
    }
    const auto& reading = readings.reading;
    // The three names are fixed: they are the same in every language.
    model.hero = {"Device",
                  percent(reading ? std::optional(reading->deviceUtilization) : std::nullopt),
                  Hue::gpu, ""};
    model.componentsTitle = text(texts, Key::gpu_components);
    const SeriesTint color = ChartTints::color(preferences.colorGPU, {SeriesRole::gpu});
    const auto add = [&](const char* symbol, const char* title, std::optional<double> load) {
        model.components.push_back(
            {symbol, title, percent(load), load ? std::optional(color) : std::nullopt});
    };
    add("paintbrush", "Tiler", reading ? reading->tilerUtilization : std::nullopt);
    add("rectangle.stack", "Renderer", reading ? reading->rendererUtilization : std::nullopt);
    return model;
}

std::optional<ChartCardModel> describeGPUCharts(bool isAvailable, const HistorySeries& history,
                                                const DisplayPreferences& preferences,
                                                const Localization& texts) {
    if (!isAvailable || !preferences.graphsGPU) return std::nullopt;
    return ChartCardModel{historyTitle(preferences.historyRange),
                          {describeChart(ChartMetric::gpu, text(texts, Key::section_gpu), "display",
                                         history, preferences)}};
}

}  // namespace vtx
