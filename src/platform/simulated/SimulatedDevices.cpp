// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedDevices.h"

#include <fmt/format.h>

#include <algorithm>

#include "platform/IORegistry.h"

namespace vtx::devices {
namespace {

constexpr std::uint8_t efficiencyTable = 1;
constexpr std::uint8_t performanceTable = 5;
constexpr std::uint8_t thirdTable = 9;

std::string tableKey(std::uint8_t table) { return fmt::format("voltage-states{}-sram", table); }

void installProcessors(SimulatedRegistry& registry, const MacShape& shape) {
    const auto cpus = registry.add(registry.root(planes::deviceTree), "cpus", "IOPlatformDevice");
    for (std::size_t number = 0; number < shape.cores.size(); ++number) {
        if (std::ranges::find(shape.missingFromTree, number) != shape.missingFromTree.end())
            continue;
        const bool isEfficiency = shape.cores[number] == CoreKind::efficiency;
        registry.add(cpus, fmt::format("cpu{}", number), "IOPlatformDevice",
                     {{"cpu-id", encodeDeviceTreeNumber(static_cast<std::uint32_t>(number))},
                      {"cluster-type", toData(isEfficiency ? std::string_view("E\0", 2)
                                                           : std::string_view("P\0", 2))}});
    }
}

void installPowerManager(SimulatedRegistry& registry, const MacShape& shape) {
    if (shape.efficiencyStepsMHz.empty() && shape.performanceStepsMHz.empty()) return;
    const auto pmgr = registry.add(registry.root(planes::service), "pmgr", "AppleARMIODevice");
    std::vector<ClusterRecord> clusters;
    const auto addTable = [&](std::uint8_t table, const std::vector<double>& stepsMHz) {
        if (stepsMHz.empty()) return;
        registry.set(pmgr, tableKey(table), encodeVoltageStates(stepsMHz, shape.stepUnit));
        clusters.push_back({table, static_cast<std::uint8_t>(clusters.size())});
    };
    addTable(thirdTable, shape.thirdClusterStepsMHz);
    addTable(efficiencyTable, shape.efficiencyStepsMHz);
    addTable(performanceTable, shape.performanceStepsMHz);
    registry.set(pmgr, "acc-clusters", encodeClusters(clusters));
}

void installIdentity(SimulatedRegistry& registry, const MacShape& shape) {
    const auto tree = registry.root(planes::deviceTree);
    const auto memory = registry.add(tree, "memory", "IOPlatformDevice");
    if (!shape.memoryType.empty())
        registry.set(memory, "dram-type", toData(shape.memoryType + '\0'));
    if (shape.memoryTransfersPerSecond != 0)
        registry.set(memory, "dram-speed", encodeDeviceTreeNumber(shape.memoryTransfersPerSecond));
    const auto product = registry.add(tree, "product", "IOPlatformDevice");
    if (!shape.productName.empty())
        registry.set(product, "product-name", toData(shape.productName + '\0'));
}

}  // namespace

void install(SimulatedRegistry& registry, const MacShape& shape) {
    installIdentity(registry, shape);
    if (!shape.performanceLevels) return;
    installProcessors(registry, shape);
    installPowerManager(registry, shape);
}

std::vector<SimulatedChannel> coreStates(SimulatedProcessors& processors) {
    std::vector<SimulatedChannel> channels;
    const MacShape& shape = processors.shape();
    const auto all = processors.clockResidencies();
    for (std::size_t number = 0; number < all.size(); ++number) {
        const auto& core = all[number];
        if (core.steps.empty()) continue;
        const bool isEfficiency = shape.cores[number] == CoreKind::efficiency;
        SimulatedChannel channel;
        channel.group = "CPU Stats";
        channel.subgroup = "CPU Core Performance States";
        channel.name = fmt::format("{}{}", isEfficiency ? shape.efficiencyChannel : "PCPU", number);
        channel.unit = "ns";
        channel.states = {{"OFF", 0}, {"IDLE", core.idle}};
        for (std::size_t step = 0; step < core.steps.size(); ++step)
            channel.states.push_back(
                {fmt::format("V{}P{}", step, core.steps.size() - 1 - step), core.steps[step]});
        channels.push_back(std::move(channel));
    }
    return channels;
}

std::vector<SimulatedChannel> energyCounters() {
    std::vector<SimulatedChannel> channels;
    for (const char* name : {"CPU Energy", "GPU Energy", "ANE"}) {
        SimulatedChannel channel;
        channel.group = "Energy Model";
        channel.name = name;
        channel.unit = "mJ";
        channels.push_back(std::move(channel));
    }
    return channels;
}

}  // namespace vtx::devices
