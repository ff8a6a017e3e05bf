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

CoreLayout layoutOfLevels(Sysctl& sysctl, IORegistry& registry, int levels, int pCoreCount) {
    const bool isSingleLevel = levels == 1;
    CoreLayout layout;
    layout.pCoreCount = pCoreCount;
    if (!isSingleLevel)
        layout.eCoreCount = SysctlReader(sysctl).int32("hw.perflevel1.logicalcpu").value_or(0);
    if (auto tables = PMGRReader::detectFrequencyTables(registry)) {
        layout.pCoreFrequencyStepsMHz = std::move(tables->performanceStepsMHz);
        layout.eCoreFrequencyStepsMHz = std::move(tables->efficiencyStepsMHz);
    }
    layout.pCoreMaxMHz = topClock(layout.pCoreFrequencyStepsMHz, sysctl, 0);
    if (!isSingleLevel) layout.eCoreMaxMHz = topClock(layout.eCoreFrequencyStepsMHz, sysctl, 1);
    layout.clusterMap = CoreLayout::detectCpuClusterMap(registry);
    return layout;
}

}  // namespace

std::optional<CoreLayout> CoreLayout::detect(Sysctl& sysctl, IORegistry& registry) {
    const SysctlReader reader(sysctl);
    if (const auto levels = atLeastOne(reader.int32("hw.nperflevels"))) {
        if (const auto pCores = atLeastOne(reader.int32("hw.perflevel0.logicalcpu")))
            return layoutOfLevels(sysctl, registry, *levels, *pCores);
    }
    const auto all = atLeastOne(reader.int32("hw.logicalcpu"));
    if (!all) return std::nullopt;
    CoreLayout layout;
    layout.pCoreCount = *all;
    layout.pCoreMaxMHz = sysctlMaxMHz(sysctl, 0);
    return layout;
}

std::optional<double> CoreLayout::sysctlMaxMHz(Sysctl& sysctl, int perflevel) {
    const SysctlReader reader(sysctl);
    const auto name = fmt::format("hw.perflevel{}.cpufrequency_max", perflevel);
    if (const auto mhz = hertzAsMHz(reader.int64(name))) return mhz;
    return perflevel == 0 ? hertzAsMHz(reader.int64("hw.cpufrequency_max")) : std::nullopt;
}

}  // namespace vtx
