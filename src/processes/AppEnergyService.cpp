// SPDX-License-Identifier: MIT
#include "processes/AppEnergyService.h"

#include <utility>

#include "base/Clock.h"
#include "processes/MachTime.h"

namespace vtx {
namespace {

constexpr double nanosecondsPerSecond = 1e9;
constexpr double fullPercent = 100.0;

// What counts as much as one percent of a core.
constexpr double weightOfIdleWakeup = 0.2;
constexpr double weightOfInterruptWakeup = 0.05;
/// The same however much was billed: the counter says that there was some, and no more.
constexpr double surchargeForBilledEnergy = 5.0;

/// A counter that fell is another process's.
std::uint64_t growth(std::uint64_t now, std::uint64_t before) {
    return now < before ? 0 : now - before;
}

double perSecond(double count, double elapsed) { return elapsed > 0.0 ? count / elapsed : 0.0; }

}  // namespace

AppEnergyService::AppEnergyService(const ProcessTable& table, const Clock& clock)
    : table_(table), clock_(clock), timebase_(table.machTimebaseInfo()) {}

AppEnergyService::Impacts AppEnergyService::compute(std::span<const ProcessSnapshot> snapshots) {
    const Moment now(clock_);
    const double elapsed = previousSampleAt_ ? secondsBetween(*previousSampleAt_, now) : 0.0;
    std::unordered_map<std::int32_t, RusageInfo> usages;
    usages.reserve(snapshots.size());
    Impacts impacts;
    impacts.reserve(snapshots.size());
    for (const ProcessSnapshot& process : snapshots) {
        RusageInfo usage;
        if (table_.procPidRusage(process.pid, usage) != 0) continue;
        usages.insert_or_assign(process.pid, usage);
        const auto before = previousRusage_.find(process.pid);
        const RusageInfo& baseline = before == previousRusage_.end() ? usage : before->second;
        impacts.insert_or_assign(process.pid, impactOf(usage, baseline, elapsed));
    }
    previousRusage_ = std::move(usages);
    previousSampleAt_ = now;
    return impacts;
}

AppEnergyImpact AppEnergyService::impactOf(const RusageInfo& now, const RusageInfo& before,
                                           double elapsed) const {
    const auto idle = static_cast<double>(growth(now.pkgIdleWakeups, before.pkgIdleWakeups));
    const auto interrupts =
        static_cast<double>(growth(now.interruptWakeups, before.interruptWakeups));
    const auto used = static_cast<double>(nanoseconds(
        growth(now.userTime, before.userTime) + growth(now.systemTime, before.systemTime),
        timebase_));
    AppEnergyImpact impact;
    impact.wakeupsPerSecond = perSecond(idle, elapsed);
    impact.cpuComponent = perSecond(used / nanosecondsPerSecond, elapsed) * fullPercent;
    impact.gpuComponent = now.billedEnergy != 0 ? surchargeForBilledEnergy : 0.0;
    const double interruptTerm = perSecond(interrupts, elapsed) * weightOfInterruptWakeup;
    impact.score =
        impact.gpuComponent +
        (interruptTerm + (impact.cpuComponent + impact.wakeupsPerSecond * weightOfIdleWakeup));
    return impact;
}

}  // namespace vtx
