// SPDX-License-Identifier: MIT
#include "platform/linux/ProcessorNodes.h"

#include <fmt/format.h>

#include <array>

#include "platform/IORegistry.h"
#include "platform/shapes/DeviceTree.h"

namespace vtx {
namespace {

/// The table of each level, fast first. Readers take these two where a single cluster is listed.
constexpr std::array<ClusterRecord, 2> clusterOfLevel{{{5, 1}, {1, 0}}};

Data encodeSteps(std::span<const std::uint64_t> stepsKHz) {
    std::vector<double> stepsMHz;
    stepsMHz.reserve(stepsKHz.size());
    for (const auto kHz : stepsKHz) stepsMHz.push_back(static_cast<double>(kHz) / 1000.0);
    return encodeVoltageStates(stepsMHz, StepUnit::kilohertz);
}

}  // namespace

std::shared_ptr<RegistryNode> makeProcessorNodes(const LinuxProcessors& processors) {
    if (processors.levelCount() < 2) return nullptr;
    auto cpus = std::make_shared<FixedNode>(planes::deviceTree, "cpus", PropertyMap{});
    for (std::size_t place = 0; place < processors.count(); ++place) {
        PropertyMap properties;
        properties.emplace("cpu-id", encodeDeviceTreeNumber(static_cast<std::uint32_t>(place)));
        properties.emplace("cluster-type", toData(processors.levelAt(place) == 0 ? "P" : "E"));
        auto cpu = std::make_shared<FixedNode>(planes::deviceTree, fmt::format("cpu{}", place),
                                               std::move(properties));
        cpu->parent = cpus;
        cpus->children.push_back(std::move(cpu));
    }
    return cpus;
}

std::shared_ptr<RegistryNode> makePowerManager(const CpuFreq& cpuFreq) {
    PropertyMap properties;
    std::vector<ClusterRecord> clusters;
    for (std::size_t level = 0; level < clusterOfLevel.size(); ++level) {
        const auto steps = cpuFreq.stepsKHz(level);
        if (steps.empty()) continue;
        const ClusterRecord& cluster = clusterOfLevel.at(level);
        clusters.push_back(cluster);
        properties.emplace(fmt::format("voltage-states{}-sram", cluster.table), encodeSteps(steps));
    }
    if (clusters.empty()) return nullptr;
    properties.emplace("acc-clusters", encodeClusters(clusters));
    return std::make_shared<FixedNode>(planes::service, "pmgr", std::move(properties));
}

}  // namespace vtx
