// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>

#include "base/Executors.h"
#include "base/QueueExecutor.h"
#include "fan/SharedFans.h"
#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "smc/SharedSensors.h"
#include "telemetry/SharedTelemetry.h"

namespace vtx {

/// Everything that logic needs around it in a test: the executors as queues that the test
/// steps, the clock that stands until moved, the machine in memory, and its log in the place of the
/// process's, as the process's shared objects are. Made first in a test, so that it goes last.
class TestBench {
public:
    explicit TestBench(MacShape shape = MacShape::standard(),
                       SimulatedUserDefaults::Values settings = {});
    ~TestBench();
    TestBench(const TestBench&) = delete;
    TestBench& operator=(const TestBench&) = delete;

    ManualClock clock;
    SimulatedPlatform platform;
    SimulatedMac& mac = platform.mac;
    Failures& failures = platform.failures;
    SimulatedUnifiedLog& log = platform.unifiedLog;

    QueueExecutor main;
    /// Stands for the thread of the tick engines.
    QueueExecutor engine;
    /// Stands for the thread of what may take long.
    QueueExecutor blocking;

    [[nodiscard]] Ports ports() { return platform.ports(); }
    [[nodiscard]] Executors executors() { return {main, engine, blocking}; }

    /// Runs the jobs of all queues, and those that they post, until none is left. One that never
    /// comes to rest ends the test with an exception.
    void settle();
    /// Settles, then moves the clock by `span` from deadline to deadline, settling at each.
    void advance(Duration span);
    /// The machine sleeps for `span`: the handlers are told, the time passes, they are told again.
    void sleepMachine(Duration span);
    /// The process ends, as far as its shared sensors go: what they hold of the machine they give
    /// back.
    void dropSensors() { sensors_.reset(); }
    /// Another run of the program begins on the same machine.
    void restartSensors() { sensors_.emplace(platform.ports()); }

private:
    LogSink* previousSink_;
    SharedTelemetry telemetry_{platform.ports()};
    std::optional<SharedSensors> sensors_{std::in_place, platform.ports()};
    SharedFans fans_{platform.ports()};
};

}  // namespace vtx
