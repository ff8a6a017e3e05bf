// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>
#include <map>

#include "base/Bytes.h"
#include "platform/IORegistry.h"
#include "telemetry/CoreLayout.h"

namespace vtx {
namespace {

/// Beyond the processors of any machine: a map that long fits none, and takes memory to no end.
constexpr std::uint32_t absurdNumber = 65'536;

std::optional<std::uint32_t> processorNumber(PropertyView cpu) {
    const auto* bytes = cpu["cpu-id"].data();
    if (!bytes || bytes->size() < 4) return std::nullopt;
    return readLittleEndian32(std::span(*bytes).first<4>());
}

std::optional<ClusterType> clusterType(PropertyView cpu) {
    const auto* bytes = cpu["cluster-type"].data();
    if (!bytes || bytes->empty()) return std::nullopt;
    switch (std::to_integer<char>(bytes->front())) {
        case 'E':
            return ClusterType::efficiency;
        case 'P':
            return ClusterType::performance;
        default:
            return std::nullopt;
    }
}

std::map<std::uint32_t, ClusterType> recordedTypes(IORegistry& registry) {
    std::map<std::uint32_t, ClusterType> types;
    const auto cpus = registry.entryFromPath("IODeviceTree:/cpus");
    if (!cpus) return types;
    const auto children = registry.entryGetChildIterator(cpus, planes::deviceTree);
    if (children.result != kernSuccess || !children.iterator) return types;
    while (const auto child = registry.iteratorNext(children.iterator)) {
        const auto copied = registry.entryCreateCFProperties(child);
        if (copied.result != kernSuccess || !copied.properties) continue;
        const auto number = processorNumber(*copied.properties);
        const auto type = clusterType(*copied.properties);
        if (number && type) types.insert_or_assign(*number, *type);
    }
    return types;
}

}  // namespace

std::vector<ClusterType> CoreLayout::detectCpuClusterMap(IORegistry& registry) {
    const auto types = recordedTypes(registry);
    if (types.empty() || types.rbegin()->first >= absurdNumber) return {};
    std::vector<ClusterType> map(types.rbegin()->first + 1, ClusterType::performance);
    for (const auto& [number, type] : types) map[number] = type;
    return map;
}

}  // namespace vtx
