// SPDX-License-Identifier: MIT
#include "processes/BackgroundHogDetector.h"

#include <algorithm>

#include "platform/Ports.h"
#include "platform/ProcessTable.h"
#include "platform/Workspace.h"

namespace vtx {
namespace {

/// Of no process.
constexpr std::int32_t noPid = -1;

using Processes = std::vector<const ProcessSnapshot*>;

/// In the order in which they are remembered, so that both are walked side by side.
Processes byPid(std::span<const ProcessSnapshot> snapshots) {
    Processes all;
    all.reserve(snapshots.size());
    for (const ProcessSnapshot& process : snapshots) all.push_back(&process);
    std::ranges::sort(all, {}, [](const ProcessSnapshot* process) { return process->pid; });
    return all;
}

}  // namespace

BackgroundHogDetector::BackgroundHogDetector(const Ports& ports)
    : workspace_(ports.workspace), table_(ports.processTable), clock_(ports.clock) {}

void BackgroundHogDetector::observe(std::span<const ProcessSnapshot> snapshots) {
    if (!*isEnabled) return forget();
    hogs = look(snapshots);
}

void BackgroundHogDetector::forget() {
    history_.clear();
    if (!hogs->empty()) hogs = std::vector<HogReport>{};
}

std::vector<HogReport> BackgroundHogDetector::look(std::span<const ProcessSnapshot> snapshots) {
    const Moment now(clock_);
    const std::int32_t frontmost = workspace_.frontmostApplication().value_or(noPid);
    const std::uint32_t user = table_.getuid();
    std::vector<HogReport> reports;
    auto known = history_.begin();
    for (const ProcessSnapshot* process : byPid(snapshots)) {
        const std::int32_t pid = process->pid;
        while (known != history_.end() && known->first < pid) known = drop(known);
        bool isKnown = known != history_.end() && known->first == pid;
        if (pid != frontmost && process->uid == user) {
            if (!isKnown) known = history_.try_emplace(known, pid);
            isKnown = true;
            known->second.add({now.instant, process->cpuPercent, process->residentMemoryBytes},
                              configuration->windowSeconds);
        }
        if (!isKnown) continue;
        if (auto report = reportOf(*process, known->second, now))
            reports.push_back(std::move(*report));
        ++known;
    }
    while (known != history_.end()) known = drop(known);
    // As they were found where they are equal, which is by pid.
    std::ranges::sort(reports, [](const HogReport& a, const HogReport& b) {
        return a.activeSeconds != b.activeSeconds ? a.activeSeconds > b.activeSeconds
                                                  : a.pid < b.pid;
    });
    return reports;
}

BackgroundHogDetector::History::iterator BackgroundHogDetector::drop(History::iterator gone) {
    firstNoticed_.erase(gone->first);
    return history_.erase(gone);
}

std::optional<HogReport> BackgroundHogDetector::reportOf(const ProcessSnapshot& process,
                                                         ObservationWindow& observed,
                                                         const Moment& now) {
    const double threshold = configuration->cpuThreshold;
    const double activeFor = observed.activeSeconds(threshold);
    if (activeFor < configuration->minDurationSeconds) return std::nullopt;
    const auto shares = observed.shares(threshold);
    const Instant first =
        firstNoticed_.try_emplace(process.pid, observed.beginning().value_or(now.instant))
            .first->second;
    // By the clock as it is set now, so that it never lies ahead.
    const Date firstDate = now.date - std::chrono::floor<Date::duration>(now.instant - first);
    return HogReport{process.pid, process.name, process.executablePath,      shares.average,
                     shares.peak, activeFor,    process.residentMemoryBytes, firstDate,
                     now.date};
}

}  // namespace vtx
