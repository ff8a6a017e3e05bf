// SPDX-License-Identifier: MIT
#include "ui/models/CPUSectionModel.h"

#include <fmt/format.h>

#include <utility>

#include "ui/models/ChartRange.h"
#include "ui/models/Formatters.h"
#include "ui/models/SectionFormatters.h"
#include "ui/models/SectionText.h"

namespace vtx {
namespace {

using Key = L10n::Key;

// Fixed: they are the same in every language.
constexpr auto noLayoutText = "CPU-Topologie konnte nicht gelesen werden.";
constexpr auto totalChartTitle = "CPU gesamt";

/// What tells the two kinds of cores apart.
struct ClusterKind {
    const char* labelPrefix;
    const char* symbol;
    const char* chartSymbol;
    Key title;
    Hue hue;
    SeriesRole role;
    ChartMetric metric;
    std::string DisplayPreferences::* color;
    bool DisplayPreferences::* graph;
    int CoreLayout::* count;
    std::optional<double> CoreLayout::* maxMHz;
    double CPUStats::* usage;
    std::optional<double> CPUStats::* currentMHz;
    std::vector<double> CPUStats::* perCore;
    std::vector<double> CoreLayout::* clockTable;
    bool SeenClocks::* seenClock;
};

constexpr ClusterKind performance{"P",
                                  "p.circle.fill",
                                  "p.circle",
                                  Key::cpu_pCores,
                                  Hue::pCore,
                                  SeriesRole::pCore,
                                  ChartMetric::pCore,
                                  &DisplayPreferences::colorPCore,
                                  &DisplayPreferences::graphsPCore,
                                  &CoreLayout::pCoreCount,
                                  &CoreLayout::pCoreMaxMHz,
                                  &CPUStats::pCoreUsage,
                                  &CPUStats::pCoreCurrentFrequencyMHz,
                                  &CPUStats::pPerCore,
                                  &CoreLayout::pCoreFrequencyStepsMHz,
                                  &SeenClocks::pCore};
constexpr ClusterKind efficiency{"E",
                                 "e.circle.fill",
                                 "e.circle",
                                 Key::cpu_eCores,
                                 Hue::eCore,
                                 SeriesRole::eCore,
                                 ChartMetric::eCore,
                                 &DisplayPreferences::colorECore,
                                 &DisplayPreferences::graphsECore,
                                 &CoreLayout::eCoreCount,
                                 &CoreLayout::eCoreMaxMHz,
                                 &CPUStats::eCoreUsage,
                                 &CPUStats::eCoreCurrentFrequencyMHz,
                                 &CPUStats::ePerCore,
                                 &CoreLayout::eCoreFrequencyStepsMHz,
                                 &SeenClocks::eCore};

// A cluster that idles through a tick has no clock for it. Nothing is known before the first
// reading, nor on a machine that never tells clocks.
ClockTileModel clockOf(const std::optional<CPUStats>& reading, const CoreLayout& layout,
                       const ClusterKind& kind) {
    ClockTileModel tile{std::string(emptyMark), ""};
    if (reading) {
        const auto& current = (*reading).*kind.currentMHz;
        const bool tellsClocks =
            !(layout.*kind.clockTable).empty() || reading->seenClocks.*kind.seenClock;
        if (current)
            tile.current = formatFreq(current);
        else if (tellsClocks)
            tile.current = "Idle";
    }
    const auto& maximum = layout.*kind.maxMHz;
    if (maximum && *maximum > 0.0) tile.maximum = "max " + formatFreq(maximum);
    return tile;
}

PerCoreBarsModel barsOf(const std::optional<CPUStats>& reading, const CoreLayout& layout,
                        const ClusterKind& kind, const Localization& texts) {
    std::vector<std::optional<double>> loads;
    if (reading)
        loads.assign(((*reading).*kind.perCore).begin(), ((*reading).*kind.perCore).end());
    else
        loads.resize(static_cast<std::size_t>(layout.*kind.count));
    PerCoreBarsModel model{
        text(texts, Key::cpu_perCore), "cpu", fmt::format("{} Cores", loads.size()), {}};
    model.bars.reserve(loads.size());
    for (const auto& load : loads)
        model.bars.push_back({fmt::format("{}{}", kind.labelPrefix, model.bars.size() + 1),
                              percent(load), drawnFraction(load.value_or(0.0))});
    return model;
}

ClusterModel clusterOf(const std::optional<CPUStats>& reading, const CoreLayout& layout,
                       const ClusterKind& kind, const DisplayPreferences& preferences,
                       const Localization& texts) {
    return {kind.symbol,
            text(texts, kind.title),
            percent(reading ? std::optional((*reading).*kind.usage) : std::nullopt),
            kind.hue,
            ChartTints::color(preferences.*kind.color, {kind.role}),
            clockOf(reading, layout, kind),
            barsOf(reading, layout, kind, texts)};
}

}  // namespace

std::optional<ChartCardModel> describeCPUCharts(const std::optional<CoreLayout>& layout,
                                                const CPUHistories& histories,
                                                const DisplayPreferences& preferences,
                                                const Localization& texts) {
    ChartCardModel card{historyTitle(preferences.historyRange), {}};
    if (preferences.graphsCPU)
        card.charts.push_back(
            describeChart(ChartMetric::cpu, totalChartTitle, "cpu", histories.total, preferences));
    const auto add = [&](const ClusterKind& kind, const HistorySeries& history) {
        // Cores that the machine is known to lack would have a chart of zeros.
        const bool hasCores = !layout || (*layout).*kind.count != 0;
        if (preferences.*kind.graph && hasCores)
            card.charts.push_back(describeChart(kind.metric, text(texts, kind.title),
                                                kind.chartSymbol, history, preferences));
    };
    add(performance, histories.pCores);
    add(efficiency, histories.eCores);
    if (card.charts.empty()) return std::nullopt;
    return card;
}

CPUSectionModel describeCPUSection(const CPUSectionReadings& readings,
                                   const DisplayPreferences& preferences,
                                   const Localization& texts) {
    CPUSectionModel model;
    const auto& reading = readings.reading;
    const CoreLayout* layout = readings.layout ? &*readings.layout : nullptr;
    if (reading) layout = &reading->layout;
    model.hero = {text(texts, Key::cpu_total),
                  percent(reading ? std::optional(reading->totalUsage) : std::nullopt), Hue::cpu,
                  layout ? formatCores(layout->pCoreCount, layout->eCoreCount) : ""};
    if (!layout) model.noLayout = PlaceholderModel{"cpu", noLayoutText, ""};
    for (const ClusterKind* kind : {&performance, &efficiency})
        if (layout && layout->*kind->count != 0)
            model.clusters.push_back(clusterOf(reading, *layout, *kind, preferences, texts));
    return model;
}

}  // namespace vtx
