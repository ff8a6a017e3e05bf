// SPDX-License-Identifier: MIT
#include "platform/linux/PolicyClock.h"

#include <utility>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr auto timesFile = "/stats/time_in_state";
constexpr auto averageFile = "/cpuinfo_avg_freq";
constexpr auto currentFile = "/scaling_cur_freq";

/// A file of sysfs is a page at most. One that fills it may have been cut.
constexpr std::size_t pageSize = 4096;
constexpr std::size_t numberSize = 64;

/// What each clock gained; empty where the clocks are others, or where one lost: then they were
/// reset meanwhile.
std::vector<ClockTime> gained(const std::vector<ClockTime>& before,
                              const std::vector<ClockTime>& now) {
    if (before.size() != now.size()) return {};
    std::vector<ClockTime> gains;
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i].kHz != before[i].kHz || now[i].ticks < before[i].ticks) return {};
        if (now[i].ticks > before[i].ticks)
            gains.push_back({now[i].kHz, now[i].ticks - before[i].ticks});
    }
    return gains;
}

}  // namespace

std::optional<ClockSource> clockSourceOf(const LinuxRoot& root, const std::string& folder) {
    const auto times = root.read(folder + timesFile, pageSize - 1);
    if (times && parseTimeInState(*times)) return ClockSource::timeInState;
    if (root.exists(folder + averageFile)) return ClockSource::averageClock;
    const auto current = root.readUnsigned(folder + currentFile);
    if (current && isClock(*current)) return ClockSource::currentClock;
    // While its processors are all offline a policy tells nothing. It may later.
    if (!current && !root.read(folder + "/related_cpus") && root.exists(folder + currentFile))
        return ClockSource::currentClock;
    return std::nullopt;
}

PolicyClock::PolicyClock(const LinuxRoot& root, const std::string& folder, ClockSource source)
    : source_(source),
      times_(root.path(folder + timesFile)),
      average_(root.path(folder + averageFile)),
      current_(root.path(folder + currentFile)) {}

void PolicyClock::forget() {
    lastTimes_.clear();
    lastClock_.reset();
}

std::vector<ClockTime> PolicyClock::read() {
    if (source_ == ClockSource::timeInState) return readTimes();
    if (source_ == ClockSource::averageClock) {
        if (const auto average = readClock(average_)) return {{*average, 1}};
    }
    return readCurrent();
}

std::vector<ClockTime> PolicyClock::readTimes() {
    const auto text = times_.read(pageSize);
    auto times = text && text->size() < pageSize ? parseTimeInState(*text) : std::nullopt;
    const auto before =
        std::exchange(lastTimes_, times ? *std::move(times) : std::vector<ClockTime>{});
    return gained(before, lastTimes_);
}

std::vector<ClockTime> PolicyClock::readCurrent() {
    const auto now = readClock(current_);
    const auto before = std::exchange(lastClock_, now);
    if (!now) return {};
    return {{before ? (*before + *now) / 2 : *now, 1}};
}

std::optional<std::uint64_t> PolicyClock::readClock(KeptFile& file) {
    const auto text = file.read(numberSize);
    const auto kHz = text && text->size() < numberSize ? parseUnsigned(*text) : std::nullopt;
    return kHz && isClock(*kHz) ? kHz : std::nullopt;
}

}  // namespace vtx
