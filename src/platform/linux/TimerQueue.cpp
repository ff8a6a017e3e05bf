// SPDX-License-Identifier: MIT
#include "platform/linux/TimerQueue.h"

#include <algorithm>

namespace vtx {

TimerQueue::Id TimerQueue::add(Instant deadline, Duration tolerance, Job job) {
    tolerance = std::max(tolerance, Duration::zero());
    const bool fits = deadline <= Instant::max() - tolerance;
    const Instant latest = fits ? deadline + tolerance : Instant::max();
    // Behind those of the same deadline, which were added before.
    const auto at = std::ranges::upper_bound(timers_, deadline, {}, &Timer::deadline);
    timers_.insert(at, Timer{deadline, latest, ++lastId_, std::move(job)});
    return lastId_;
}

void TimerQueue::cancel(Id id) {
    const auto timer = std::ranges::find(timers_, id, &Timer::id);
    if (timer == timers_.end()) return;
    const Job gone = std::move(timer->job);  // what it owned may come back here when it goes
    timers_.erase(timer);
}

std::optional<Instant> TimerQueue::wakeAt() const {
    if (timers_.empty()) return std::nullopt;
    const Instant limit = std::ranges::min_element(timers_, {}, &Timer::latest)->latest;
    const auto beyond = std::ranges::upper_bound(timers_, limit, {}, &Timer::deadline);
    return std::prev(beyond)->deadline;
}

void TimerQueue::runDue(Instant now) {
    const Id last = lastId_;
    for (;;) {
        const auto due =
            std::ranges::find_if(timers_, [last](const Timer& timer) { return timer.id <= last; });
        if (due == timers_.end() || due->deadline > now) return;
        Job job = std::move(due->job);
        timers_.erase(due);
        job();
    }
}

}  // namespace vtx
