// SPDX-License-Identifier: MIT
#include "processes/ProcessManager.h"

#include <algorithm>
#include <utility>

#include "base/Clock.h"
#include "base/Executors.h"
#include "base/Log.h"
#include "base/Sleep.h"
#include "platform/Ports.h"
#include "processes/ProcessFilter.h"

namespace vtx {
namespace {

constexpr Logger logger{"ProcessManager"};
constexpr std::uint32_t greatestNice = 20;
constexpr Duration followInterval = std::chrono::seconds(2);
/// So that it can share a wake-up with a pass.
constexpr Duration followTolerance = std::chrono::milliseconds(200);

/// Whether two records with one number are of one process, as far as that is known.
bool isSame(const ProcessSnapshot& a, const ProcessSnapshot& b) {
    return !a.startTime || !b.startTime || *a.startTime == *b.startTime;
}

}  // namespace

ProcessManager::ProcessManager(const Ports& ports, const Executors& executors)
    : table_(ports.processTable),
      clock_(ports.clock),
      locale_(ports.locale),
      order_(ports.locale),
      engine_(executors.blocking,
              std::make_shared<ProcessSamplingEngine>(ports.processTable, ports.clock)),
      tasks_(executors.main) {}

Task<> ProcessManager::refresh() {
    isLoading = true;
    isResting_ = false;
    auto sample = co_await engine_.run(&ProcessSamplingEngine::snapshot);
    processes = order_.sorted(std::move(sample));
    lastRefresh = clock_.now();
    isLoading = false;
}

Subscription ProcessManager::keepFresh() {
    auto task = tasks_.spawn([this](std::stop_token stop) { return follow(std::move(stop)); });
    return Subscription([task = std::move(task)]() mutable { task.cancel(); });
}

Task<> ProcessManager::follow(std::stop_token stop) {
    while (!stop.stop_requested()) {
        co_await refresh();
        if (stop.stop_requested()) co_return;
        co_await clock_.sleepUntil(clock_.continuous() + followInterval, followTolerance, stop);
    }
}

void ProcessManager::startRefresh() {
    tasks_.spawn([this](const std::stop_token&) { return refresh(); });
}

std::optional<double> ProcessManager::secondsSinceRefresh() const {
    if (!*lastRefresh) return std::nullopt;
    return toSeconds(clock_.now() - **lastRefresh);
}

std::vector<ProcessSnapshot> ProcessManager::matching(std::string_view search) const {
    return ProcessFilter(search, locale_).of(*processes);
}

Task<> ProcessManager::rest() {
    // A refresh under way would have to learn everything twice.
    if (isResting_ || *isLoading) co_return;
    isResting_ = true;
    order_.rest();
    (void)co_await engine_.run(&ProcessSamplingEngine::rest);
}

bool ProcessManager::isModifiable(const ProcessSnapshot& snapshot) const {
    return snapshot.isModifiable(table_.getuid());
}

bool ProcessManager::isOwnSoftware(const ProcessSnapshot& snapshot) const {
    return snapshot.isOwnSoftware(table_.getuid());
}

ProcessManager::ReniceResult ProcessManager::renice(const ProcessSnapshot& snapshot,
                                                    std::int32_t nice) {
    const std::int32_t pid = snapshot.pid;
    if (!isModifiable(snapshot)) {
        logger.error("renice rejected: pid={} not modifiable", pid);
        return ProcessManagerError::notModifiable();
    }
    if (static_cast<std::uint32_t>(nice) > greatestNice)
        return ProcessManagerError::invalidNice(nice);
    if (const int error = table_.setpriority(pid, snapshot.startTime, nice)) {
        logger.error("setpriority({}, {}) failed: errno={}", pid, nice, error);
        return ProcessManagerError::systemCallFailed(error);
    }
    logger.info("renice succeeded: pid={} nice={}", pid, nice);
    const auto listed = std::ranges::find(*processes, pid, &ProcessSnapshot::pid);
    if (listed == processes->end() || !isSame(*listed, snapshot)) {
        ProcessSnapshot changed = snapshot;
        changed.nice = nice;
        return changed;
    }
    const auto place = static_cast<std::size_t>(listed - processes->begin());
    ProcessSnapshot changed = *listed;
    changed.nice = nice;
    processes.modify([&](auto& all) { all[place].nice = nice; });
    return changed;
}

}  // namespace vtx
