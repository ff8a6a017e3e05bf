// SPDX-License-Identifier: MIT
#include "processes/BackgroundHogDetector.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/Clock.h"
#include "platform/Ports.h"
#include "platform/ProcessTable.h"
#include "platform/Workspace.h"

namespace vtx {
namespace {

/// A gap this long between two active observations is a break: the machine slept, or nobody looked.
constexpr double breakSeconds = 30.0;
/// Of no process.
constexpr std::int32_t noPid = -1;

}  // namespace

BackgroundHogDetector::BackgroundHogDetector(const Ports& ports)
    : workspace_(ports.workspace), table_(ports.processTable), clock_(ports.clock) {}

void BackgroundHogDetector::observe(std::span<const ProcessSnapshot> snapshots) {
    if (!*isEnabled) return forget();
    const Date now = clock_.now();
    record(snapshots, now);
    dropTheGone(snapshots);
    hogs = report(snapshots, now);
}

void BackgroundHogDetector::forget() {
    history_.clear();
    if (!hogs->empty()) hogs = std::vector<HogReport>{};
}

void BackgroundHogDetector::record(std::span<const ProcessSnapshot> snapshots, Date now) {
    const std::int32_t frontmost = workspace_.frontmostApplication().value_or(noPid);
    const std::uint32_t user = table_.getuid();
    const double window = configuration->windowSeconds;
    const auto isOld = [now, window](const Observation& observation) {
        return toSeconds(now - observation.timestamp) > window;
    };
    for (const ProcessSnapshot& process : snapshots) {
        if (process.pid == frontmost || process.uid != user) continue;
        Observations& observed = history_[process.pid];
        observed.push_back({now, process.cpuPercent, process.residentMemoryBytes});
        // Wherever they are: the clock may have been set back.
        std::erase_if(observed, isOld);
    }
}

void BackgroundHogDetector::dropTheGone(std::span<const ProcessSnapshot> snapshots) {
    std::unordered_set<std::int32_t> present;
    present.reserve(snapshots.size());
    for (const ProcessSnapshot& process : snapshots) present.insert(process.pid);
    std::erase_if(history_, [&](const auto& observed) {
        const bool isGone = !present.contains(observed.first);
        if (isGone) firstNoticed_.erase(observed.first);
        return isGone;
    });
}

std::vector<HogReport> BackgroundHogDetector::report(std::span<const ProcessSnapshot> snapshots,
                                                     Date now) {
    std::unordered_map<std::int32_t, const ProcessSnapshot*> present;
    present.reserve(snapshots.size());
    for (const ProcessSnapshot& process : snapshots) present.emplace(process.pid, &process);
    std::vector<HogReport> reports;
    for (const auto& [pid, observed] : history_) {
        active_.clear();
        double sum = 0.0;
        double peak = 0.0;
        for (const Observation& observation : observed) {
            peak = std::max(peak, observation.cpuPercent);
            if (!(observation.cpuPercent >= configuration->cpuThreshold)) continue;
            active_.push_back(observation);
            sum += observation.cpuPercent;
        }
        const double activeFor = activeSeconds(active_);
        if (activeFor < configuration->minDurationSeconds) continue;
        const ProcessSnapshot& process = *present.at(pid);
        const Date first = observed.empty() ? now : observed.front().timestamp;
        reports.push_back({pid, process.name, process.executablePath,
                           sum / static_cast<double>(std::max<std::size_t>(active_.size(), 1)),
                           peak, activeFor, process.residentMemoryBytes,
                           firstNoticed_.try_emplace(pid, first).first->second, now});
    }
    // As they were found where they are equal, which is by pid.
    std::ranges::sort(reports, [](const HogReport& a, const HogReport& b) {
        return a.activeSeconds != b.activeSeconds ? a.activeSeconds > b.activeSeconds
                                                  : a.pid < b.pid;
    });
    return reports;
}

double BackgroundHogDetector::activeSeconds(std::vector<Observation>& active) {
    std::ranges::sort(active, {}, &Observation::timestamp);
    double total = 0.0;
    for (std::size_t i = 1; i < active.size(); ++i) {
        const double gap = toSeconds(active[i].timestamp - active[i - 1].timestamp);
        if (gap < breakSeconds) total += gap;
    }
    return total;
}

}  // namespace vtx
