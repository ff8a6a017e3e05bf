// SPDX-License-Identifier: MIT
#include "ui/models/SystemSectionModel.h"

#include <string>
#include <utility>

#include "telemetry/SystemInfo.h"
#include "ui/models/Formatters.h"
#include "ui/models/SectionFormatters.h"
#include "ui/models/SectionText.h"

namespace vtx {
namespace {

using Key = L10n::Key;
using Architecture = SystemInfo::Architecture;
using Rows = std::vector<std::pair<Key, std::string>>;

Key architectureKey(Architecture architecture) {
    if (architecture == Architecture::appleSilicon) return Key::system_archAppleSilicon;
    if (architecture == Architecture::intel) return Key::system_archIntel;
    return Key::system_archUnknown;
}

std::string textOr(const std::optional<std::string>& value) {
    return value ? *value : std::string(emptyMark);
}

KeyValueCardModel card(const Localization& texts, Key title, Rows rows) {
    KeyValueCardModel made{std::string(texts.string(title)), {}};
    made.rows.reserve(rows.size());
    for (auto& [key, value] : rows)
        made.rows.push_back({std::string(texts.string(key)), std::move(value)});
    return made;
}

Rows chipRows(const SystemInfo& machine, const Localization& texts) {
    return {{Key::system_modelName, machine.chipName},
            {Key::system_architecture,
             std::string(texts.string(architectureKey(machine.architecture)))},
            {Key::system_cores, formatCores(machine.pCoreCount, machine.eCoreCount)},
            {Key::system_pCluster, formatFreq(machine.pClusterMaxMHz)},
            {Key::system_eCluster, formatFreq(machine.eClusterMaxMHz)}};
}

Rows memoryRows(const SystemInfo& machine) {
    const bool isKnown = machine.totalRAMBytes != 0;
    return {{Key::system_memorySize,
             isKnown ? formatInstalledBytes(machine.totalRAMBytes) : std::string(emptyMark)},
            {Key::system_memoryType, textOr(machine.ramType)},
            {Key::system_memorySpeed, formatWhole(machine.ramSpeedMTps, "MT/s")}};
}

Rows batteryRows(const SystemInfo& machine, std::optional<double> celsius) {
    return {
        {Key::system_batteryDesignCapacity, formatWhole(machine.batteryDesignCapacityMAh, "mAh")},
        {Key::system_batteryCycles, formatWhole(machine.batteryCycleCount, "")},
        {Key::system_batteryTemperature, formatTemp(celsius)}};
}

}  // namespace

std::vector<KeyValueCardModel> describeSystemSection(const SystemInfo& machine,
                                                     std::optional<double> batteryTemperatureC,
                                                     const Localization& texts) {
    return {
        card(texts, Key::system_chip, chipRows(machine, texts)),
        card(texts, Key::system_memorySection, memoryRows(machine)),
        card(texts, Key::system_gpu,
             {{Key::system_gpuModel, textOr(machine.gpuName)},
              {Key::system_gpuCores, formatWhole(machine.gpuCoreCount, "")}}),
        card(texts, Key::system_battery, batteryRows(machine, batteryTemperatureC)),
        card(texts, Key::system_cooling, {{Key::system_fans, std::to_string(machine.fanCount)}}),
        card(texts, Key::system_modelSection,
             {{Key::system_modelFamily, machine.modelFamily},
              {Key::system_modelIdentifier, machine.modelIdentifier}})};
}

}  // namespace vtx
