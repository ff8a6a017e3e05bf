// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/Date.h"
#include "base/Job.h"

namespace vtx {

/// The arithmetic of timers, without a clock: what is pending, when to wake for it, and what is
/// due. One executor; a job may add and cancel.
class TimerQueue {
public:
    /// Names a pending timer; never used again.
    using Id = std::uint64_t;

    /// A tolerance below zero counts as zero.
    Id add(Instant deadline, Duration tolerance, Job job);
    /// Nothing happens for a timer that has run or was cancelled.
    void cancel(Id id);

    /// The latest pending deadline at which none of the others is beyond its tolerance, so that
    /// one waking serves as many as possible and a timer alone is never late on purpose. Absent
    /// when nothing is pending.
    [[nodiscard]] std::optional<Instant> wakeAt() const;

    /// Runs what is due at `now`: by deadline, then in the order in which it was added. What a job
    /// adds waits for the next call, even if it is due at once.
    void runDue(Instant now);

    [[nodiscard]] bool isEmpty() const { return timers_.empty(); }

private:
    struct Timer {
        Instant deadline;
        Instant latest;  ///< deadline and tolerance
        Id id;
        Job job;
    };

    std::vector<Timer> timers_;  ///< by deadline, then by id
    Id lastId_ = 0;
};

}  // namespace vtx
