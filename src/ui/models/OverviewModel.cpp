// SPDX-License-Identifier: MIT
#include "ui/models/OverviewModel.h"

#include <fmt/format.h>

#include <utility>

namespace vtx {
namespace {

MetricRowModel loadRow(std::string_view symbol, std::string title, std::optional<double> load) {
    return {symbol, std::move(title), percent(load), loadTint(load)};
}

enum class Clock { seen, never };

// A cluster idles between two ticks and has no clock then: its row stays, so that nothing jumps,
// where the machine is known to tell clocks.
bool showsClock(const std::optional<double>& mhz, Clock clock, int cores,
                const std::vector<double>& stepsMHz) {
    return mhz || (cores != 0 && (clock == Clock::seen || !stepsMHz.empty()));
}

MetricRowModel clockRow(std::string title, const std::optional<double>& mhz) {
    return {"waveform.path.ecg", std::move(title), mhz ? formatMHz(*mhz) : std::string(emptyMark)};
}

void addMemoryRows(std::vector<MetricRowModel>& rows, const std::optional<MemoryStats>& memory) {
    const std::string none(emptyMark);
    rows.push_back({"memorychip", "Memory used", memory ? gigabytes(memory->usedBytes) : none,
                    memory ? memoryTint(memory->usedBytes, memory->totalBytes) : Tint::primary});
    rows.push_back(
        {"arrow.triangle.swap", "Swap", memory ? gigabytes(memory->swapUsedBytes) : none});
}

}  // namespace

OverviewModel describeOverview(const OverviewReadings& readings) {
    OverviewModel model;
    model.pressure = describePressure(readings.pressure, readings.consumers);
    auto& rows = model.liveRows;
    const auto& cpu = readings.cpu;
    const auto of = [&cpu](double CPUStats::* load) {
        return cpu ? std::optional((*cpu).*load) : std::nullopt;
    };
    rows.push_back(loadRow("cpu", "CPU", of(&CPUStats::totalUsage)));
    static const CoreLayout unknown;
    const CoreLayout& told = readings.layout ? *readings.layout : unknown;
    const CoreLayout& layout = cpu ? cpu->layout : told;
    if (layout.pCoreCount != 0)
        rows.push_back(loadRow("p.circle", fmt::format("P-cores ({})", layout.pCoreCount),
                               of(&CPUStats::pCoreUsage)));
    if (layout.eCoreCount != 0)
        rows.push_back(loadRow("e.circle", fmt::format("E-cores ({})", layout.eCoreCount),
                               of(&CPUStats::eCoreUsage)));
    const auto pClock = cpu ? cpu->pCoreCurrentFrequencyMHz : std::nullopt;
    const auto eClock = cpu ? cpu->eCoreCurrentFrequencyMHz : std::nullopt;
    const auto clock = [](bool isSeen) { return isSeen ? Clock::seen : Clock::never; };
    const SeenClocks seen = cpu ? cpu->seenClocks : SeenClocks{};
    if (showsClock(pClock, clock(seen.pCore), layout.pCoreCount, layout.pCoreFrequencyStepsMHz))
        rows.push_back(clockRow("P-Core Clock", pClock));
    if (showsClock(eClock, clock(seen.eCore), layout.eCoreCount, layout.eCoreFrequencyStepsMHz))
        rows.push_back(clockRow("E-Core Clock", eClock));
    rows.push_back(
        loadRow("display", "GPU",
                readings.gpu ? std::optional(readings.gpu->deviceUtilization) : std::nullopt));
    const auto& temperature = readings.temperature;
    rows.push_back({"thermometer.variable", "Temperature",
                    formatTemp(temperature ? temperature->cpuMaxC : std::nullopt)});
    addMemoryRows(rows, readings.memory);
    return model;
}

}  // namespace vtx
