// SPDX-License-Identifier: MIT
#include "processes/TableMeter.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <random>
#include <stdexcept>

#include "base/Executors.h"

namespace vtx::bench {
namespace {

constexpr int uncountedRounds = 3;
constexpr auto patience = std::chrono::seconds(30);

LinuxPlatform::Options optionsWith(const std::filesystem::path& configFolder) {
    LinuxPlatform::Options options;
    options.configFolder = configFolder;
    return options;
}

/// The same ports with another time.
Ports withClock(const Ports& ports, Clock& clock) {
    Ports changed{.appService = ports.appService,
                  .clock = clock,
                  .heapRelief = ports.heapRelief,
                  .hidEventSystem = ports.hidEventSystem,
                  .hostInfo = ports.hostInfo,
                  .ioRegistry = ports.ioRegistry,
                  .ioReport = ports.ioReport,
                  .locale = ports.locale,
                  .memoryPressure = ports.memoryPressure,
                  .networkInterfaces = ports.networkInterfaces,
                  .powerSources = ports.powerSources,
                  .processInfo = ports.processInfo,
                  .processTable = ports.processTable,
                  .smc = ports.smc,
                  .softwareUpdater = ports.softwareUpdater,
                  .sysctl = ports.sysctl,
                  .thermalState = ports.thermalState,
                  .unifiedLog = ports.unifiedLog,
                  .userDefaults = ports.userDefaults,
                  .userNotifications = ports.userNotifications,
                  .workspace = ports.workspace};
    return changed;
}

}  // namespace

TableMeter::TableMeter()
    : tick_(LinuxPlatform::nameThread("tick")),
      blocking_(LinuxPlatform::nameThread("table")),
      platform_(loop_, loop_.executor(), optionsWith(settings_.path())),
      manager_(platform_.ports(), {loop_.executor(), tick_, blocking_}),
      energy_(platform_.ports().processTable, platform_.ports().clock),
      detector_(withClock(platform_.ports(), detectorClock_)),
      tasks_(loop_.executor()) {
    (void)onWorker([this] { workerClock_.emplace(); });
    readTable();
    for (const KinfoProc& record : records_) {
        FileDescriptor file(
            ::open(fmt::format("/proc/{}/stat", record.pid).c_str(), O_RDONLY | O_CLOEXEC));
        if (file) files_.push_back(std::move(file));
    }
}

TableCosts TableMeter::measure(int rounds, std::chrono::milliseconds gap) {
    TableCosts costs;
    TableCosts uncounted;
    for (int round = -uncountedRounds; round < rounds; ++round) {
        TableCosts& into = round < 0 ? uncounted : costs;
        wait(gap);
        timeRefresh(into, gap);
        into.sorting.add(timeSorting());
        wait(gap);
        into.energy.add(timeEnergy());
        into.detector.add(timeDetector());
        wait(gap);
        into.system.add(onWorker([this] { readTable(); }));
        wait(gap);
        into.preads.add(onWorker([this] { readFiles(); }));
    }
    costs.processes = processes_;
    return costs;
}

Task<> TableMeter::refresh() {
    co_await manager_.refresh();
    isDone_ = true;
}

void TableMeter::timeRefresh(TableCosts& costs, std::chrono::milliseconds gap) {
    const auto worker = workerClock_->used();
    const auto main = mainClock_.used();
    isDone_ = false;
    tasks_.spawn([this](std::stop_token) { return refresh(); });
    runUntil(isDone_);
    const auto mainUsed = mainClock_.used() - main;
    wait(gap / 4);  // until the worker waits again
    costs.main.add(mainUsed);
    costs.refresh.add(mainUsed + workerClock_->used() - worker);
    processes_ = manager_.processes->size();
}

std::chrono::nanoseconds TableMeter::timeSorting() {
    // As the kernel lists them, and with loads as a busy machine has them.
    auto processes = *manager_.processes;
    std::ranges::sort(processes, {}, &ProcessSnapshot::pid);
    std::mt19937 numbers(1);
    for (std::size_t i = 0; i < processes.size(); i += 3)
        processes[i].cpuPercent = static_cast<double>(numbers() % 1000) / 1000.0;
    ProcessOrder order(platform_.ports().locale);
    (void)order.sorted(processes);  // knows the names from now on, as from the second refresh on
    const auto before = mainClock_.used();
    const auto sorted = order.sorted(std::move(processes));
    return mainClock_.used() - before;
}

std::chrono::nanoseconds TableMeter::timeEnergy() {
    const auto before = mainClock_.used();
    const auto impacts = energy_.compute(*manager_.processes);
    return mainClock_.used() - before;
}

void TableMeter::fillWindow() {
    constexpr int observations = 360;
    detector_.isEnabled = true;
    for (int i = 0; i < observations; ++i) {
        detectorClock_.advanceBy(std::chrono::seconds(5));
        detector_.observe(*manager_.processes);
    }
}

std::chrono::nanoseconds TableMeter::timeDetector() {
    if (!*detector_.isEnabled) fillWindow();
    detectorClock_.advanceBy(std::chrono::seconds(5));
    const auto before = mainClock_.used();
    detector_.observe(*manager_.processes);
    return mainClock_.used() - before;
}

void TableMeter::readTable() {
    std::size_t bytes = 0;
    if (table_.kernProcAll({}, bytes) != 0) throw std::runtime_error("no process table");
    records_.resize(bytes / kinfoProcBytes + 1);
    if (table_.kernProcAll(records_, bytes) != 0) throw std::runtime_error("no process table");
    records_.resize(bytes / kinfoProcBytes);
    for (const KinfoProc& record : records_) (void)table_.details(record.pid);
}

void TableMeter::readFiles() {
    std::array<char, 4096> buffer{};
    for (const FileDescriptor& file : files_)
        (void)!::pread(file.get(), buffer.data(), buffer.size(), 0);
}

void TableMeter::wait(std::chrono::milliseconds gap) {
    loop_.runUntil([] { return false; }, gap);
}

void TableMeter::runUntil(const bool& done) {
    if (!loop_.runUntil([&done] { return done; }, patience))
        throw std::runtime_error("the work did not end");
}

std::chrono::nanoseconds TableMeter::onWorker(const std::function<void()>& work) {
    bool isDone = false;
    std::chrono::nanoseconds used{};
    blocking_.post([&] {
        const ThreadClock clock;
        const auto before = clock.used();
        work();
        used = clock.used() - before;
        loop_.executor().post([&isDone] { isDone = true; });
    });
    runUntil(isDone);
    return used;
}

}  // namespace vtx::bench
