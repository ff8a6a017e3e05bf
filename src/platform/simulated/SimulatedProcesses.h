// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "platform/ProcessTable.h"
#include "platform/simulated/LivingLoad.h"

namespace vtx {

class SimulatedProcessors;

/// One process of the simulated machine.
struct SimulatedProcess {
    std::int32_t pid = 0;
    std::uint32_t uid = 0;
    std::string name;
    std::string path;  ///< empty where the system refuses it
    std::uint64_t residentBytes = 0;
    std::int32_t threads = 1;
    std::int32_t nice = 0;

    /// Cores that it keeps busy.
    double load = 0.0;
    /// Part of what the cores do, beside the other processes that have one, while it lives.
    double weight = 0.0;
    /// What it has used until now.
    std::uint64_t cpuNanoseconds = 0;

    /// What it has done so far, as the kernel counts; scripted.
    std::uint64_t pkgIdleWakeups = 0;
    std::uint64_t interruptWakeups = 0;
    std::uint64_t billedEnergy = 0;

    bool refusesName = false;
    bool refusesTaskInfo = false;
    bool refusesRusage = false;
    /// errno with which its niceness is refused; 0 tells it.
    int priorityError = 0;

    std::optional<ProcessStartTime> startTime;
    std::optional<bool> isSystemSoftware;
};

/// The processes of the simulated machine, in the kernel's order. A new machine runs what a logged
/// in user's machine runs, all of it idle. What they have used catches up with the clock whenever
/// somebody looks or changes something. Any thread.
class SimulatedProcesses {
public:
    /// The machine's user.
    static constexpr std::uint32_t user = 501;

    SimulatedProcesses(const Clock& clock, SimulatedProcessors& processors);

    /// From now on those that have a weight share what the cores do, each now more and now less.
    void live(std::uint64_t seed);

    /// While the machine sleeps nothing runs.
    void setAsleep(bool asleep);

    /// Adds one at the end.
    void add(SimulatedProcess process);
    void remove(std::int32_t pid);
    void removeAll();
    /// Changes the first one with that number; there must be one, or it is a programming fault.
    void change(std::int32_t pid, const std::function<void(SimulatedProcess&)>& edit);

    [[nodiscard]] std::size_t count() const;
    /// All of them, what they have used brought up to now.
    [[nodiscard]] std::vector<SimulatedProcess> all();
    [[nodiscard]] std::optional<SimulatedProcess> find(std::int32_t pid);

private:
    /// All with the lock held.
    void catchUp();
    void shareOut(std::uint64_t nanoseconds, Duration sinceStart);
    [[nodiscard]] std::uint64_t coresBusy() const;
    [[nodiscard]] std::vector<SimulatedProcess>::iterator at(std::int32_t pid);

    const Clock& clock_;
    SimulatedProcessors& processors_;
    mutable std::mutex mutex_;
    std::vector<SimulatedProcess> processes_;
    Instant countedUntil_;
    Instant livingSince_;
    std::uint64_t busyUntil_ = 0;
    bool asleep_ = false;
    std::optional<LivingLoad> living_;
};

/// What runs on a new simulated machine.
[[nodiscard]] std::vector<SimulatedProcess> standardProcesses();

}  // namespace vtx
