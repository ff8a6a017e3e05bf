// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "Fuzz.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedIORegistry.h"
#include "platform/simulated/SimulatedIOReportLibrary.h"
#include "telemetry/CPUClockMonitorEngine.h"
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

    ManualClock clock;
    SimulatedChannels channels;
    SimulatedIOReportLibrary library{channels, instruments};

    Node core() { return registry.add(cpus, "cpu", "IOPlatformDevice"); }
};

/// Takes channels off the input, empty ones once that is used up.
class Counted {
public:
    explicit Counted(std::span<const std::byte> input) : input_(input) {}

    std::vector<SimulatedChannel> channels() {
        std::vector<SimulatedChannel> made(1 + byte() % 4);
        for (auto& channel : made) {
            channel.group = "CPU Stats";
            channel.subgroup = "CPU Core Performance States";
            channel.name = word(std::array{"PCPU0", "ECPU0", "MCPU1"});
            channel.states.resize(byte() % 8);
            for (auto& [name, residency] : channel.states) {
                name = word(std::array{"IDLE", "P1", "off"});
                residency = number();
            }
        }
        return made;
    }
    /// Another number for each state, its own where few bytes are left.
    void count(std::vector<SimulatedChannel>& channels) {
        for (auto& channel : channels)
            for (auto& state : channel.states)
                if (!input_.empty()) state.residency = number();
    }

private:
    unsigned byte() {
        if (input_.empty()) return 0;
        const auto first = std::to_integer<unsigned>(input_.front());
        input_ = input_.subspan(1);
        return first;
    }
    /// Small, or any.
    std::int64_t number() {
        const unsigned kind = byte();
        if (kind < 0xF0) return kind;
        std::int64_t value{};
        const auto bytes = input_.first(std::min(sizeof value, input_.size()));
        std::memcpy(&value, bytes.data(), bytes.size());
        input_ = input_.subspan(bytes.size());
        return value;
    }
    std::string word(const auto& known) {
        const unsigned at = byte() % 4;
        if (at < known.size()) return known[at];
        const auto bytes = input_.first(std::min<std::size_t>(byte() % 8, input_.size()));
        input_ = input_.subspan(bytes.size());
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }

    std::span<const std::byte> input_;
};

void expectClock(std::optional<double> mhz, const std::vector<double>& steps) {
    if (!mhz) return;
    // Of a table as firmware left it, which need not ascend.
    fuzz::expect(!steps.empty() && *mhz >= 0.0);
    fuzz::expect(*mhz <= *std::ranges::max_element(steps) * (1.0 + 1e-9));
}

/// No clock is beyond the steps, whatever the chip counted.
void tryClocks(Machine& machine, CoreLayout layout, std::span<const std::byte> input) {
    Counted counted(input);
    auto channels = counted.channels();
    machine.channels.script(channels);
    const auto bridge = IOReportBridge::load(machine.library, machine.clock);
    auto subscription = bridge->makeCPUFrequencySubscription();
    fuzz::expect(subscription.has_value());
    CPUClockMonitorEngine engine(bridge, std::move(*subscription), layout);
    fuzz::expect(!engine.nextSample());
    for (int i = 0; i < 2; ++i) {
        counted.count(channels);
        machine.channels.script(channels);
        const auto sample = engine.nextSample();
        if (!sample) continue;
        fuzz::expect(sample->pCoreMHz || sample->eCoreMHz);
        expectClock(sample->pCoreMHz, layout.pCoreFrequencyStepsMHz);
        expectClock(sample->eCoreMHz, layout.eCoreFrequencyStepsMHz);
    }
}

bool isTableName(const std::string& name) {
    return name.starts_with("voltage-states") && name.ends_with("-sram");
}

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
    const auto keys = PMGRReader::clusterKeys(pmgr);
    fuzz::expect(keys.has_value() == (first.size() >= 16));
    fuzz::expect(!keys || (isTableName(keys->pKey) && isTableName(keys->eKey)));
    const auto steps = PMGRReader::decodeSteps("voltage-states1-sram", pmgr);
    fuzz::expect(steps.size() == second.size() / 8);
    for (const double mhz : steps)
        fuzz::expect(std::isfinite(mhz) && mhz >= 0.0 && mhz < 100'000.0);

    static Machine machine;
    for (std::size_t i = 0; i < machine.cores.size(); ++i) {
        machine.registry.set(machine.cores[i], "cpu-id", i % 2 == 0 ? first : second);
        machine.registry.set(machine.cores[i], "cluster-type", i % 2 == 0 ? second : first);
    }
    fuzz::expect(CoreLayout::detectCpuClusterMap(machine.port).size() <= 65536);
    for (const auto& [key, value] : pmgr) machine.registry.set(machine.pmgr, key, value);
    const auto tables = PMGRReader::detectFrequencyTables(machine.port);
    const PMGRReader::ClusterKeys names =
        keys.value_or(PMGRReader::ClusterKeys{"voltage-states1-sram", "voltage-states5-sram"});
    const auto isThere = [&](const std::string& key) {
        return pmgr.contains(key) && !steps.empty();
    };
    fuzz::expect(tables.has_value() == (isThere(names.eKey) || isThere(names.pKey)));
    CoreLayout layout;
    layout.pCoreFrequencyStepsMHz =
        tables ? tables->performanceStepsMHz : std::vector<double>{600, 1000, 1400};
    layout.eCoreFrequencyStepsMHz =
        tables ? tables->efficiencyStepsMHz : std::vector<double>{400, 800};
    tryClocks(machine, layout, bytes);
    fuzz::expect(machine.instruments.handles.outstanding() == 0);
    return 0;
}
