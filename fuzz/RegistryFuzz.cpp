// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>

#include "Fuzz.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedIORegistry.h"
#include "telemetry/CoreLayout.h"
#include "telemetry/PMGRReader.h"

using namespace vtx;

namespace {

/// Made once: only the values are those of the input.
struct Machine {
    using Node = SimulatedRegistry::Node;

    SimulatedRegistry registry;
    Instruments instruments;
    SimulatedIORegistry port{registry, instruments};
    Node cpus = registry.add(registry.root(planes::deviceTree), "cpus", "IOPlatformDevice");
    std::array<Node, 4> cores{core(), core(), core(), core()};
    Node pmgr = registry.add(registry.root(planes::service), "pmgr", "AppleARMIODevice");

    Node core() { return registry.add(cpus, "cpu", "IOPlatformDevice"); }
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The first byte says where the rest is cut in two; each half is a property.
    if (size == 0) return 0;
    const auto bytes = fuzz::asInputBytes(data + 1, size - 1);
    const auto cut = std::min<std::size_t>(data[0], bytes.size());
    const Data first(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(cut));
    const Data second(bytes.begin() + static_cast<std::ptrdiff_t>(cut), bytes.end());

    const PropertyMap pmgr{{"acc-clusters", first},
                           {"voltage-states1-sram", second},
                           {"voltage-states5-sram", second}};
    (void)PMGRReader::clusterKeys(pmgr);
    for (const double mhz : PMGRReader::decodeSteps("voltage-states1-sram", pmgr))
        fuzz::expect(std::isfinite(mhz) && mhz >= 0.0);

    static Machine machine;
    for (std::size_t i = 0; i < machine.cores.size(); ++i) {
        machine.registry.set(machine.cores[i], "cpu-id", i % 2 == 0 ? first : second);
        machine.registry.set(machine.cores[i], "cluster-type", i % 2 == 0 ? second : first);
    }
    fuzz::expect(CoreLayout::detectCpuClusterMap(machine.port).size() <= 65536);
    for (const auto& [key, value] : pmgr) machine.registry.set(machine.pmgr, key, value);
    (void)PMGRReader::detectFrequencyTables(machine.port);
    fuzz::expect(machine.instruments.handles.outstanding() == 0);
    return 0;
}
