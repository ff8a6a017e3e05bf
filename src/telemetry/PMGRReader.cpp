// SPDX-License-Identifier: MIT
#include "telemetry/PMGRReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>
#include <utility>

#include "base/Bytes.h"
#include "base/Log.h"
#include "platform/IORegistry.h"

namespace vtx {
namespace {

constexpr Logger logger{"PMGRReader"};
constexpr std::size_t recordSize = 8;
constexpr std::uint32_t leastHertz = 100'000'000;
constexpr std::uint32_t leastKilohertz = 100'000;

/// The whole records of a table; a partial one at the end is dropped.
template <class Visit>
void forEachRecord(std::span<const std::byte> bytes, Visit visit) {
    for (std::size_t at = 0; bytes.size() - at >= recordSize; at += recordSize)
        visit(bytes.subspan(at).first<recordSize>());
}

/// The unit differs between chip generations, so the magnitude has to tell it.
double asMHz(std::uint32_t raw) {
    if (raw >= leastHertz) return raw / 1'000'000.0;
    if (raw >= leastKilohertz) return raw / 1'000.0;
    return raw;
}

RegistryEntry findPowerManager(IORegistry& registry) {
    const auto match = registry.serviceMatching("AppleARMIODevice");
    if (!match) return {};
    const auto services = registry.getMatchingServices(*match);
    if (services.result != kernSuccess || !services.iterator) return {};
    while (auto entry = registry.iteratorNext(services.iterator))
        if (registry.entryGetName(entry) == "pmgr") return entry;
    return {};
}

}  // namespace

std::optional<ClusterFrequencyTables> PMGRReader::detectFrequencyTables(IORegistry& registry) {
    const auto properties = pmgrProperties(registry);
    if (!properties) return std::nullopt;
    const auto keys = clusterKeys(*properties)
                          .value_or(ClusterKeys{"voltage-states1-sram", "voltage-states5-sram"});
    ClusterFrequencyTables tables{decodeSteps(keys.pKey, *properties),
                                  decodeSteps(keys.eKey, *properties)};
    if (!tables.performanceStepsMHz.empty() || !tables.efficiencyStepsMHz.empty()) return tables;
    logger.standard("pmgr present but no DVFS tables were decoded");
    return std::nullopt;
}

std::optional<PropertyMap> PMGRReader::pmgrProperties(IORegistry& registry) {
    const auto entry = findPowerManager(registry);
    if (!entry) return std::nullopt;
    const auto copied = registry.entryCreateCFProperties(entry);
    if (copied.result != kernSuccess || !copied.properties) return std::nullopt;
    const auto* all = PropertyView(*copied.properties).map();
    return all ? std::optional(*all) : std::nullopt;
}

std::optional<PMGRReader::ClusterKeys> PMGRReader::clusterKeys(const PropertyMap& from) {
    const auto found = from.find("acc-clusters");
    const auto* bytes = found == from.end() ? nullptr : PropertyView(found->second).data();
    if (!bytes) return std::nullopt;
    struct Cluster {
        unsigned tier;
        std::size_t place;  // equal tiers keep their order
        std::string key;
    };
    std::vector<Cluster> clusters;
    forEachRecord(*bytes, [&](std::span<const std::byte, recordSize> record) {
        const auto table = std::to_integer<unsigned>(record[0]);
        clusters.push_back({std::to_integer<unsigned>(record[1]), clusters.size(),
                            fmt::format("voltage-states{}-sram", table)});
    });
    if (clusters.size() < 2) return std::nullopt;
    std::ranges::sort(clusters, {},
                      [](const Cluster& each) { return std::pair(each.tier, each.place); });
    return ClusterKeys{clusters[clusters.size() - 2].key, clusters.back().key};
}

std::vector<double> PMGRReader::decodeSteps(std::string_view key, const PropertyMap& in) {
    std::vector<double> steps;
    const auto found = in.find(key);
    const auto* bytes = found == in.end() ? nullptr : PropertyView(found->second).data();
    if (!bytes) return steps;
    steps.reserve(bytes->size() / recordSize);
    forEachRecord(*bytes, [&steps](std::span<const std::byte, recordSize> record) {
        steps.push_back(asMHz(readLittleEndian32(record.first<4>())));
    });
    return steps;
}

}  // namespace vtx
