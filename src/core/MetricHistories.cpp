// SPDX-License-Identifier: MIT
// What the coordinator makes of a pass: histories, their export, and the critical metric.
#include <vector>

#include "core/CriticalMetric.h"
#include "core/HistoryCSVExporter.h"
#include "core/MetricsCoordinator.h"

namespace vtx {
namespace {

/// The longest window that can be shown, and so all that is kept.
constexpr double windowSeconds = 3600.0;
/// How many points beyond it gather before they are let go.
constexpr std::size_t slack = 64;
/// Twice what comes in an hour of the shortest interval. More than that gathers only where the
/// clock was set back: no point of before is old until its time has come again.
constexpr auto mostPoints =
    static_cast<std::size_t>(2.0 * windowSeconds / DisplayPreferences::minRefreshIntervalSeconds);

void append(Published<HistorySeries>& history, Date now, double value) {
    history.modify([&](HistorySeries& series) {
        if (series.size() >= mostPoints) series.erase(series.begin(), series.begin() + slack);
        appendTrimmed(series, {now, value}, windowSeconds, slack);
    });
}

}  // namespace

void MetricsCoordinator::appendHistory(Date now) {
    if (const auto& reading = *cpu.latest) {
        append(cpuHistory, now, reading->totalUsage);
        append(pCoreHistory, now, reading->pCoreUsage);
        append(eCoreHistory, now, reading->eCoreUsage);
    }
    if (const auto& reading = *gpu.latest) append(gpuHistory, now, reading->deviceUtilization);
    if (const auto& reading = *memory.latest) append(memoryHistory, now, reading->usedFraction());
    if (const auto& reading = *diskIO.latest) {
        if (const auto rate = reading->bytesReadPerSecond) append(diskReadHistory, now, *rate);
        if (const auto rate = reading->bytesWrittenPerSecond) append(diskWriteHistory, now, *rate);
    }
    if (const auto utilization = ane.latest->utilization) append(aneHistory, now, *utilization);
}

std::string MetricsCoordinator::exportHistoryCSV() const {
    const auto lastHour = [](const Published<HistorySeries>& history) {
        return trimmed(*history, windowSeconds);
    };
    return HistoryCSVExporter::makeCSV({.cpu = lastHour(cpuHistory),
                                        .pCore = lastHour(pCoreHistory),
                                        .eCore = lastHour(eCoreHistory),
                                        .gpu = lastHour(gpuHistory),
                                        .memory = lastHour(memoryHistory),
                                        .diskRead = lastHour(diskReadHistory),
                                        .diskWrite = lastHour(diskWriteHistory),
                                        .ane = lastHour(aneHistory)});
}

bool MetricsCoordinator::isMetricEnabled(std::string_view id) const {
    const DisplayPreferences& p = *preferences;
    if (id == "cpu") return p.showCPU;
    if (id == "gpu") return p.showGPU && *gpu.isAvailable;
    if (id == "memory") return p.showMemory;
    if (id == "thermal") return p.showThermal;
    if (id == "disk") return p.showDiskIO;
    if (id == "fan") return p.showFan;
    return false;  // "ane" too, whatever `showANE` says
}

std::string MetricsCoordinator::resolveCriticalMetric() const {
    std::vector<MetricScore> scores;
    const auto rank = [&](std::string_view id, double score) {
        if (isMetricEnabled(id)) scores.push_back({id, score});
    };
    if (const auto& reading = *cpu.latest) rank("cpu", reading->totalUsage);
    if (const auto& reading = *gpu.latest) rank("gpu", reading->deviceUtilization);
    if (const auto& reading = *memory.latest)
        rank("memory", memoryScore(reading->usedFraction(), reading->pressure));
    if (const auto& reading = *temperature.latest; reading && reading->cpuMaxC)
        rank("thermal", thermalScore(*reading->cpuMaxC));
    if (const auto load = fan.latest->averageLoad()) rank("fan", *load);
    if (const auto utilization = ane.latest->utilization) rank("ane", *utilization);
    if (const auto& reading = *diskIO.latest;
        reading && reading->bytesReadPerSecond && reading->bytesWrittenPerSecond)
        rank("disk", diskScore(*reading->bytesReadPerSecond, *reading->bytesWrittenPerSecond));
    return mostCritical(scores, preferences->compactPriority);
}

void MetricsCoordinator::updateCriticalMetric() {
    // Rarely another one: no observer is told of the same.
    if (auto critical = resolveCriticalMetric(); critical != *criticalMetric)
        criticalMetric = std::move(critical);
}

}  // namespace vtx
