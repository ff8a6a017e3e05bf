// SPDX-License-Identifier: MIT
#include "pass/SensorMeter.h"

#include <memory>
#include <stdexcept>
#include <thread>
#include <utility>

#include "fan/FanMonitor.h"
#include "fan/SharedFans.h"
#include "pass/ThreadClock.h"
#include "platform/simulated/ManualClock.h"
#include "platform/simulated/Operations.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "smc/PersistentDenylistStore.h"
#include "smc/SMCBridge.h"

namespace vtx::bench {
namespace {

/// A machine that was calibrated in an earlier run.
struct Machine {
    explicit Machine(const MacShape& shape) : platform(clock, shape, settings(shape)) {}

    static SimulatedUserDefaults::Values settings(const MacShape& shape) {
        SimulatedUserDefaults defaults;
        PersistentDenylistStore::save(
            defaults, PersistentDenylistStore::storageKey(shape.chip, shape.model, shape.osBuild),
            {shape.hotSpots.begin(), shape.hotSpots.end()});
        return defaults.stored;
    }

    ManualClock clock;
    SimulatedPlatform platform;
};

MacShape shapeWith(std::size_t keys) {
    MacShape shape = MacShape::standard();
    shape.smcKeyCount = keys;
    return shape;
}

}  // namespace

SensorCosts measureSensors(std::size_t keys, int rounds, std::chrono::milliseconds gap) {
    Machine machine(shapeWith(keys));
    machine.platform.mac.live(1);
    const SharedFans shared(machine.platform.ports());
    FanMonitor fans(machine.platform.ports());
    const ThreadClock clock;
    SensorCosts costs;
    costs.keys = keys;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(gap);
        auto before = clock.used();
        const auto bridge = SMCBridge::open(machine.platform.ports());
        costs.discovery.add(clock.used() - before);
        if (!bridge || !bridge->calibration().isDone())
            throw std::runtime_error("the simulated SMC did not open calibrated");
        (void)bridge->readBatteryTemperature();
        fans.refresh();
        std::this_thread::sleep_for(gap);
        machine.clock.advanceBy(std::chrono::seconds(1));
        machine.platform.resetCalls();
        before = clock.used();
        (void)bridge->readTemperatureReading();
        fans.refresh();
        costs.poll.add(clock.used() - before);
        costs.valuesOfAPoll = machine.platform.calls(operations::smcReadValue);
    }
    return costs;
}

}  // namespace vtx::bench
