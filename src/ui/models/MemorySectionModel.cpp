// SPDX-License-Identifier: MIT
#include "ui/models/MemorySectionModel.h"

#include <fmt/format.h>

#include <cmath>

#include "processes/ProcessSnapshot.h"
#include "ui/models/ChartRange.h"
#include "ui/models/Formatters.h"
#include "ui/models/SectionFormatters.h"
#include "ui/models/SectionText.h"

namespace vtx {
namespace {

using Key = L10n::Key;
using Pressure = MemoryStats::Pressure;

// Fixed: they are the same in every language.
constexpr auto collectingSpoken = "Speicher-Aufteilung wird gesammelt.";
constexpr auto compositionSpoken = "Speicher-Aufteilung: {:.0f} Prozent belegt.";

PillModel statusOf(Pressure pressure, const Localization& texts) {
    if (pressure == Pressure::critical) return {text(texts, Key::memory_statusCritical), Hue::red};
    if (pressure == Pressure::warning) return {text(texts, Key::memory_statusWarning), Hue::orange};
    return {text(texts, Key::memory_statusNormal), Hue::green};
}

double partOf(std::uint64_t bytes, std::uint64_t total) {
    return total == 0 ? 0.0
                      : drawnFraction(static_cast<double>(bytes) / static_cast<double>(total));
}

MemoryCompositionModel compositionOf(const MemoryStats& stats) {
    MemoryCompositionModel model;
    const std::uint64_t total = stats.totalBytes;
    model.fractions = {partOf(stats.wiredBytes, total), partOf(stats.activeBytes, total),
                       partOf(stats.compressedBytes, total), partOf(stats.inactiveBytes, total),
                       partOf(stats.freeBytes, total)};
    model.spoken = total == 0
                       ? collectingSpoken
                       : fmt::format(compositionSpoken, std::round(stats.usedFraction() * 100.0));
    return model;
}

std::string ofTotal(std::uint64_t total, const Localization& texts) {
    constexpr std::string_view placeholder = "%@";
    std::string said = text(texts, Key::memory_ofTotal);
    const auto at = said.find(placeholder);
    if (at == std::string::npos) return said;
    return said.replace(at, placeholder.size(),
                        total == 0 ? std::string(emptyMark) : formatGB(total));
}

// A total of 0 is one that is not known, and so is what is left of it.
std::optional<std::uint64_t> availableBytes(const MemoryStats& stats) {
    if (stats.totalBytes == 0) return std::nullopt;
    return stats.usedBytes > stats.totalBytes ? 0 : stats.totalBytes - stats.usedBytes;
}

MemorySummaryModel summaryOf(const MemoryStats& stats, Pressure pressure,
                             const Localization& texts) {
    MemorySummaryModel model;
    model.hero = {text(texts, Key::memory_used), formatGB(stats.usedBytes), Hue::memory,
                  ofTotal(stats.totalBytes, texts)};
    model.pressure = statusOf(pressure, texts);
    model.composition = compositionOf(stats);
    model.available = {text(texts, Key::memory_available), formatGBCompact(availableBytes(stats))};
    const auto row = [&](Key key, std::uint64_t bytes) {
        model.parts.push_back({text(texts, key), formatGBCompact(bytes)});
    };
    row(Key::memory_wired, stats.wiredBytes);
    row(Key::memory_active, stats.activeBytes);
    row(Key::memory_compressed, stats.compressedBytes);
    row(Key::memory_inactive, stats.inactiveBytes);
    row(Key::memory_free, stats.freeBytes);
    row(Key::memory_swap, stats.swapUsedBytes);
    return model;
}

std::optional<PressureBannerModel> bannerOf(Pressure pressure, const Localization& texts) {
    if (pressure == Pressure::normal) return std::nullopt;
    const bool isCritical = pressure == Pressure::critical;
    return PressureBannerModel{
        isCritical ? "exclamationmark.triangle.fill" : "exclamationmark.circle",
        text(texts, Key::memory_pressureTitle), statusOf(pressure, texts),
        text(texts, isCritical ? Key::memory_pressureCritical : Key::memory_pressureWarning)};
}

ConsumerRowModel rowOf(const ProcessSnapshot& process, std::uint64_t total) {
    return {process.name.empty() ? std::string(emptyMark) : process.name,
            formatMB(process.residentMemoryBytes), partOf(process.residentMemoryBytes, total)};
}

}  // namespace

MemorySectionModel describeMemorySection(const MemorySectionReadings& readings,
                                         const DisplayPreferences& preferences,
                                         const Localization& texts) {
    MemorySectionModel model;
    const auto& reading = readings.reading;
    if (reading)
        model.summary = summaryOf(*reading, readings.pressure, texts);
    else
        model.collecting = text(texts, Key::memory_collecting);
    model.banner = bannerOf(readings.pressure, texts);
    model.consumersTitle = text(texts, Key::memory_topConsumers);
    for (const ProcessSnapshot& process : readings.consumers)
        model.consumers.push_back(rowOf(process, reading ? reading->totalBytes : 0));
    if (model.consumers.empty()) model.noConsumers = text(texts, Key::memory_noConsumers);
    model.color = ChartTints::color(preferences.colorMemory, {SeriesRole::memory});
    return model;
}

std::optional<ChartCardModel> describeMemoryCharts(const HistorySeries& history,
                                                   const DisplayPreferences& preferences,
                                                   const Localization& texts) {
    if (!preferences.graphsMemory) return std::nullopt;
    return ChartCardModel{
        historyTitle(preferences.historyRange),
        {describeChart(ChartMetric::memory,
                       text(texts, Key::section_memory) + " " + text(texts, Key::memory_used),
                       "memorychip", history, preferences)}};
}

}  // namespace vtx
