// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "TemporaryFolder.h"
#include "base/SerialExecutor.h"
#include "base/TaskScope.h"
#include "pass/Statistics.h"
#include "pass/ThreadClock.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/LinuxProcessTable.h"
#include "platform/linux/PollRunLoop.h"
#include "platform/simulated/ManualClock.h"
#include "processes/AppEnergyService.h"
#include "processes/BackgroundHogDetector.h"
#include "processes/ProcessManager.h"

namespace vtx::bench {

/// The CPU time of one refresh of the process table, whole and in its parts.
struct TableCosts {
    /// How many processes there were, at the median.
    std::size_t processes = 0;
    /// Everything, on both threads: the task, the walk, the records, the sorting, what is told.
    Statistics refresh;
    /// The platform's part alone: listing, reading, handing out.
    Statistics system;
    /// The part on the main thread, sorting included.
    Statistics main;
    /// The sorting alone.
    Statistics sorting;
    /// What follows a refresh in a pass: scoring what each process costs in energy, and taking each
    /// into the detector of background hogs, whose window is full and which is asked for no hog.
    Statistics energy;
    Statistics detector;
    /// One read each of the stat files of the same processes, kept open.
    Statistics preads;
};

/// A process manager on this machine. Lives on the thread that made it, its main executor.
class TableMeter {
public:
    TableMeter();

    /// Does all of it in turn, `gap` apart, so that each finds caches as cold as the real cadence
    /// leaves them. The first rounds are not counted.
    [[nodiscard]] TableCosts measure(int rounds, std::chrono::milliseconds gap);

private:
    Task<> refresh();
    void wait(std::chrono::milliseconds gap);
    void runUntil(const bool& done);
    [[nodiscard]] std::chrono::nanoseconds onWorker(const std::function<void()>& work);
    void timeRefresh(TableCosts& costs, std::chrono::milliseconds gap);
    [[nodiscard]] std::chrono::nanoseconds timeSorting();
    [[nodiscard]] std::chrono::nanoseconds timeEnergy();
    [[nodiscard]] std::chrono::nanoseconds timeDetector();
    void fillWindow();
    void readTable();
    void readFiles();

    TemporaryFolder settings_;
    PollRunLoop loop_;
    SerialExecutor tick_;
    SerialExecutor blocking_;
    LinuxPlatform platform_;
    LinuxRoot root_;
    LinuxProcessTable table_{root_, platform_.ports().clock};
    std::vector<KinfoProc> records_;
    std::vector<FileDescriptor> files_;
    std::size_t processes_ = 0;
    ProcessManager manager_;
    AppEnergyService energy_;
    ManualClock detectorClock_;  ///< passes five seconds with each observation
    BackgroundHogDetector detector_;
    ThreadClock mainClock_;
    std::optional<ThreadClock> workerClock_;
    bool isDone_ = false;
    TaskScope tasks_;  // last: its frames use all of the above
};

}  // namespace vtx::bench
