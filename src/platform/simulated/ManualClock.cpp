// SPDX-License-Identifier: MIT
#include "platform/simulated/ManualClock.h"

#include <algorithm>
#include <utility>

namespace vtx {
namespace {

// Far from zero, so that nobody takes an instant for a length of time unnoticed.
constexpr Instant startInstant{std::chrono::hours(1000)};

Date::duration wallPart(Instant at) {
    return std::chrono::floor<Date::duration>(at.time_since_epoch());
}

}  // namespace

ManualClock::ManualClock()
    : continuous_(startInstant), wallAtZero_(start - wallPart(startInstant)) {}

Date ManualClock::now() const {
    const std::lock_guard lock(mutex_);
    return wallAtZero_ + wallPart(continuous_);
}

Instant ManualClock::continuous() const {
    const std::lock_guard lock(mutex_);
    return continuous_;
}

Subscription ManualClock::schedule(Instant deadline, Duration tolerance, Job job) {
    const Key key{deadline, scheduled_++};
    timers_->emplace(key, Timer{tolerance, std::move(job)});
    return Subscription([weak = std::weak_ptr(timers_), key] {
        if (const auto timers = weak.lock()) timers->extract(key);
    });
}

std::vector<ManualClock::PendingTimer> ManualClock::pending() const {
    std::vector<PendingTimer> all;
    all.reserve(timers_->size());
    for (const auto& [key, timer] : *timers_) all.push_back({key.first, timer.tolerance});
    return all;
}

std::optional<Instant> ManualClock::nextDeadline() const {
    if (timers_->empty()) return std::nullopt;
    return timers_->begin()->first.first;
}

bool ManualClock::fireNext(Instant limit) {
    const auto deadline = nextDeadline();
    if (!deadline || *deadline > std::max(limit, continuous())) return false;
    moveTo(*deadline);
    auto fired = timers_->extract(timers_->begin());
    fired.mapped().job();
    return true;
}

void ManualClock::advanceTo(Instant target) {
    while (fireNext(target)) {
    }
    moveTo(target);
}

void ManualClock::advanceBy(Duration span) { advanceTo(continuous() + span); }

void ManualClock::sleepMachine(Duration span) { moveTo(continuous() + span); }

void ManualClock::setWallClock(Date date) {
    const std::lock_guard lock(mutex_);
    wallAtZero_ = date - wallPart(continuous_);
}

void ManualClock::moveTo(Instant target) {
    const std::lock_guard lock(mutex_);
    continuous_ = std::max(continuous_, target);
}

}  // namespace vtx
