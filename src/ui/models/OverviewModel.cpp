// SPDX-License-Identifier: MIT
#include "ui/models/OverviewModel.h"

#include <fmt/format.h>

namespace vtx {
namespace {

MetricRowModel loadRow(std::string_view symbol, std::string title, std::optional<double> load) {
    return {symbol, std::move(title), percent(load), loadTint(load)};
}

}  // namespace

OverviewModel describeOverview(const OverviewReadings& readings) {
    OverviewModel model;
    auto& rows = model.liveRows;
    const auto& cpu = readings.cpu;
    const auto of = [&cpu](double CPUStats::* load) {
        return cpu ? std::optional((*cpu).*load) : std::nullopt;
    };
    rows.push_back(loadRow("cpu", "CPU", of(&CPUStats::totalUsage)));
    const CoreLayout layout = cpu ? cpu->layout : readings.layout.value_or(CoreLayout{});
    if (layout.pCoreCount != 0)
        rows.push_back(loadRow("p.circle", fmt::format("P-cores ({})", layout.pCoreCount),
                               of(&CPUStats::pCoreUsage)));
    if (layout.eCoreCount != 0)
        rows.push_back(loadRow("e.circle", fmt::format("E-cores ({})", layout.eCoreCount),
                               of(&CPUStats::eCoreUsage)));
    if (cpu && cpu->pCoreCurrentFrequencyMHz)
        rows.push_back(
            {"waveform.path.ecg", "P-Core Clock", formatMHz(*cpu->pCoreCurrentFrequencyMHz)});
    if (cpu && cpu->eCoreCurrentFrequencyMHz)
        rows.push_back(
            {"waveform.path.ecg", "E-Core Clock", formatMHz(*cpu->eCoreCurrentFrequencyMHz)});
    return model;
}

}  // namespace vtx
