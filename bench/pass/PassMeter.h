// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "TemporaryFolder.h"
#include "base/SerialExecutor.h"
#include "base/TaskScope.h"
#include "core/MetricsCoordinator.h"

#include "fan/SharedFans.h"
#include "pass/ChipEngines.h"
#include "pass/Statistics.h"
#include "pass/ThreadClock.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/PollRunLoop.h"
#include "smc/SharedSensors.h"
#include "telemetry/SharedTelemetry.h"

namespace vtx::bench {

/// The CPU time of what is done for one pass, at three depths.
struct PassCosts {
    /// Everything, on both threads: the tasks, the engine and its thread's waking, what is told.
    Statistics pass;
    /// The platform's part alone: the port calls that a pass makes.
    Statistics system;
    /// One read each of the files that these need, kept open.
    Statistics preads;
    /// A step of the engine of the clocks, and reads of its files.
    Statistics clocks, clockPreads;
    /// The same of the graphics.
    Statistics graphics, graphicsPreads;
};

/// A coordinator on this machine with the preferences of a first start, and no surface. Lives on
/// the thread that made it, which is its main executor.
class PassMeter {
public:
    PassMeter();
    ~PassMeter();

    /// Does the three in turn, `gap` apart, so that each finds caches as cold as the real cadence
    /// leaves them. The first rounds are not counted.
    [[nodiscard]] PassCosts measure(int rounds, std::chrono::milliseconds gap);

    /// How often a thread of this process is woken for one pass, the timer before it included.
    [[nodiscard]] double wakeUps(int rounds, std::chrono::milliseconds interval);

    /// The recorded machine on which the engine is measured; empty for this one.
    [[nodiscard]] const std::string& clocksRecorded() const { return clocks_->recorded(); }
    [[nodiscard]] const std::string& graphicsRecorded() const { return graphics_->recorded(); }

private:
    Task<> pass();
    void wait(std::chrono::milliseconds gap);
    void runUntil(const bool& done);
    /// The time that `work` takes on the thread of the engines. Throws where it tells of a failure.
    [[nodiscard]] std::chrono::nanoseconds onWorker(const std::function<bool()>& work);
    [[nodiscard]] std::chrono::nanoseconds timePass(std::chrono::milliseconds gap);
    [[nodiscard]] std::chrono::nanoseconds timeSystem();
    [[nodiscard]] std::chrono::nanoseconds timePreads();
    void timeChip(ChipEngine& engine, Statistics& ticks, Statistics& preads,
                  std::chrono::milliseconds gap);
    void runPass();

    TemporaryFolder settings_;
    PollRunLoop loop_;
    SerialExecutor tick_;
    SerialExecutor blocking_;
    LinuxPlatform platform_;
    KeptFile stat_;
    std::unique_ptr<ChipEngine> clocks_ = ChipEngine::clocks(loop_);
    std::unique_ptr<ChipEngine> graphics_ = ChipEngine::graphics(loop_);
    SharedTelemetry shared_{platform_.ports()};
    SharedSensors sensors_{platform_.ports()};
    SharedFans fans_{platform_.ports()};
    std::unique_ptr<MetricsCoordinator> coordinator_;
    ThreadClock mainClock_;
    std::optional<ThreadClock> workerClock_;
    bool isPassDone_ = false;
    TaskScope tasks_;  // last: its frames use all of the above
};

}  // namespace vtx::bench
