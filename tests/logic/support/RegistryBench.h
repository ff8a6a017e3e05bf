// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/shapes/DeviceTree.h"
#include "platform/simulated/Operations.h"
#include "platform/simulated/SimulatedIORegistry.h"

namespace vtx {

/// A registry without anything in it but what the test puts there.
struct RegistryBench {
    using Node = SimulatedRegistry::Node;

    SimulatedRegistry registry;
    Instruments instruments;
    SimulatedIORegistry port{registry, instruments};
    Node services = registry.root(planes::service);
    Node tree = registry.root(planes::deviceTree);

    /// The power manager, with these properties.
    Node addPowerManager(PropertyMap properties) {
        return registry.add(services, "pmgr", "AppleARMIODevice", std::move(properties));
    }
    /// The node of the processors, for `addCpu`.
    Node addCpus() { return registry.add(tree, "cpus", "IOPlatformDevice"); }
    Node addCpu(Node cpus, std::uint32_t number, std::string_view type) {
        return registry.add(
            cpus, "cpu", "IOPlatformDevice",
            {{"cpu-id", encodeDeviceTreeNumber(number)}, {"cluster-type", toData(type)}});
    }
};

}  // namespace vtx
