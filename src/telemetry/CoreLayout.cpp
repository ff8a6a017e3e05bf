// SPDX-License-Identifier: MIT
#include "telemetry/CoreLayout.h"

#include <fmt/format.h>

#include <utility>

#include "telemetry/PMGRReader.h"
#include "telemetry/SysctlReader.h"

namespace vtx {
namespace {

std::optional<int> atLeastOne(std::optional<std::int32_t> value) {
    return value && *value >= 1 ? value : std::nullopt;
}

std::optional<double> hertzAsMHz(std::optional<std::int64_t> hertz) {
    if (!hertz || *hertz < 1) return std::nullopt;
    return static_cast<double>(*hertz) / 1'000'000.0;
}

// The firmware's tables ascend, so the last step is the top clock.
std::optional<double> topClock(const std::vector<double>& stepsMHz, Sysctl& sysctl, int perflevel) {
    return stepsMHz.empty() ? CoreLayout::sysctlMaxMHz(sysctl, perflevel) : stepsMHz.back();
}

CoreLayout layoutOfLevels(Sysctl& sysctl, IORegistry& registry, int levels) {
    CoreLayout layout;
    if (auto tables = PMGRReader::detectFrequencyTables(registry)) {
        layout.pCoreFrequencyStepsMHz = std::move(tables->performanceStepsMHz);
        layout.eCoreFrequencyStepsMHz = std::move(tables->efficiencyStepsMHz);
    }
    layout.pCoreMaxMHz = topClock(layout.pCoreFrequencyStepsMHz, sysctl, 0);
    if (levels != 1) layout.eCoreMaxMHz = topClock(layout.eCoreFrequencyStepsMHz, sysctl, 1);
    layout.clusterMap = CoreLayout::detectCpuClusterMap(registry);
    return layout;
}

}  // namespace

std::optional<CoreLayout::Counts> CoreLayout::detectCounts(Sysctl& sysctl) {
    const SysctlReader reader(sysctl);
    if (const auto levels = atLeastOne(reader.int32("hw.nperflevels"))) {
        if (const auto pCores = atLeastOne(reader.int32("hw.perflevel0.logicalcpu"))) {
            const int eCores =
                *levels == 1 ? 0 : reader.int32("hw.perflevel1.logicalcpu").value_or(0);
            return Counts{*pCores, eCores, *levels};
        }
    }
    const auto all = atLeastOne(reader.int32("hw.logicalcpu"));
    if (!all) return std::nullopt;
    return Counts{*all, 0, 0};
}

std::optional<CoreLayout> CoreLayout::detect(Sysctl& sysctl, IORegistry& registry) {
    const auto counts = detectCounts(sysctl);
    if (!counts) return std::nullopt;
    CoreLayout layout;
    if (counts->levels > 0)
        layout = layoutOfLevels(sysctl, registry, counts->levels);
    else
        layout.pCoreMaxMHz = sysctlMaxMHz(sysctl, 0);
    layout.pCoreCount = counts->performance;
    layout.eCoreCount = counts->efficiency;
    return layout;
}

std::optional<double> CoreLayout::sysctlMaxMHz(Sysctl& sysctl, int perflevel) {
    const SysctlReader reader(sysctl);
    const auto name = fmt::format("hw.perflevel{}.cpufrequency_max", perflevel);
    if (const auto mhz = hertzAsMHz(reader.int64(name))) return mhz;
    return perflevel == 0 ? hertzAsMHz(reader.int64("hw.cpufrequency_max")) : std::nullopt;
}

}  // namespace vtx
