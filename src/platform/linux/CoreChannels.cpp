// SPDX-License-Identifier: MIT
#include "platform/linux/CoreChannels.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vtx {
namespace {

/// The counters of /proc/stat are in hundredths of a second on every machine.
constexpr std::int64_t nanosecondsPerTick = 10'000'000;

std::size_t nearestStep(std::span<const std::uint64_t> stepsKHz, std::uint64_t kHz) {
    const auto above = std::ranges::lower_bound(stepsKHz, kHz);
    if (above == stepsKHz.end()) return stepsKHz.size() - 1;
    const auto at = static_cast<std::size_t>(above - stepsKHz.begin());
    if (at == 0) return 0;
    return kHz - stepsKHz[at - 1] <= stepsKHz[at] - kHz ? at - 1 : at;
}

}  // namespace

CoreChannels::CoreChannels(const LinuxRoot& root, const LinuxProcessors& processors,
                           const CpuFreq& cpuFreq) {
    std::size_t mostStates = 0;
    for (const auto& policy : cpuFreq.policies()) {
        const auto source = clockSourceOf(root, policy.folder);
        if (!source) continue;
        PolicyChannels channels{policy.folder, *source, {}};
        for (const auto place : policy.places) {
            const std::size_t level = processors.levelAt(place);
            const auto steps = cpuFreq.stepsKHz(level);
            if (steps.empty()) continue;
            auto name = fmt::format("{}CPU{}", level == 0 ? 'P' : 'E', place);
            channels.cores.push_back({std::move(name), place, steps, valueCount});
            valueCount += channels.cores.back().stateCount();
            mostStates = std::max(mostStates, channels.cores.back().stateCount());
        }
        if (!channels.cores.empty()) policies.push_back(std::move(channels));
    }
    if (mostStates == 0) return;
    stateNames.emplace_back("IDLE");
    for (std::size_t step = 1; step < mostStates; ++step)
        stateNames.push_back(fmt::format("P{}", step));
}

CoreResidencies::CoreResidencies(const LinuxRoot& root, const LinuxProcessors& processors,
                                 std::shared_ptr<const CoreChannels> channels)
    : channels_(std::move(channels)),
      stat_(root, processors),
      last_(processors.count()),
      values_(channels_->valueCount, 0) {
    for (const auto& policy : channels_->policies)
        clocks_.emplace_back(root, policy.folder, policy.source);
}

bool CoreResidencies::read() {
    if (!stat_.read()) return false;
    for (std::size_t i = 0; i < clocks_.size(); ++i) readPolicy(channels_->policies[i], clocks_[i]);
    for (std::size_t place = 0; place < last_.size(); ++place) last_[place] = ticksOf(place);
    hasRead_ = true;
    return true;
}

CoreResidencies::Ticks CoreResidencies::ticksOf(std::size_t place) const {
    const auto [user, system, idle, nice] = stat_.ticks()[place].words();
    return {user + system + nice, idle};
}

CoreResidencies::Ticks CoreResidencies::gainedBy(std::size_t place) const {
    const Ticks now = ticksOf(place);
    return {now.busy - last_[place].busy, now.idle - last_[place].idle};
}

void CoreResidencies::readPolicy(const PolicyChannels& policy, PolicyClock& clock) {
    // Before the first reading there is no interval yet; all that is due is its start.
    const bool ranAny = std::ranges::any_of(policy.cores, [this](const CoreChannel& core) {
        return !hasRead_ || gainedBy(core.place).busy > 0;
    });
    std::vector<ClockTime> clocks;
    if (ranAny || clock.isReadWhileIdle())
        clocks = clock.read();
    else
        clock.forget();
    if (!hasRead_) return;
    for (const auto& core : policy.cores) book(core, gainedBy(core.place), clocks);
}

void CoreResidencies::book(const CoreChannel& core, Ticks gained,
                           std::span<const ClockTime> clocks) {
    const auto states = std::span(values_).subspan(core.firstValue, core.stateCount());
    states[0] += gained.idle * nanosecondsPerTick;
    double total = 0.0;
    for (const auto& [kHz, weight] : clocks) total += static_cast<double>(weight);
    if (total <= 0.0 || gained.busy == 0) return;
    const double ran = static_cast<double>(gained.busy) * static_cast<double>(nanosecondsPerTick);
    for (const auto& [kHz, weight] : clocks) {
        const auto share = std::llround(ran * static_cast<double>(weight) / total);
        states[nearestStep(core.stepsKHz, kHz) + 1] += share;
    }
}

}  // namespace vtx
