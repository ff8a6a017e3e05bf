// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "base/Clock.h"

namespace vtx {

/// A clock that stands until it is moved. Moving it fires the timers that come due, by deadline and
/// then by the order in which they were scheduled, each while the time stands at its deadline, so
/// that no tolerance is ever used. Reading the time is safe on any thread; the rest is for the main
/// executor.
class ManualClock final : public Clock {
public:
    /// A timer that has not fired.
    struct PendingTimer {
        Instant deadline;
        Duration tolerance;
        friend bool operator==(const PendingTimer&, const PendingTimer&) = default;
    };

    /// 2025-01-15 12:00:00 UTC.
    static constexpr Date start{std::chrono::seconds{1'736'942'400}};

    ManualClock();

    [[nodiscard]] Date now() const override;
    [[nodiscard]] Instant continuous() const override;
    [[nodiscard]] Subscription schedule(Instant deadline, Duration tolerance, Job job) override;

    /// Timers in the order in which they will fire.
    [[nodiscard]] std::vector<PendingTimer> pending() const;
    /// The deadline of the next timer, which may have passed already; absent without timers.
    [[nodiscard]] std::optional<Instant> nextDeadline() const;

    /// Moves to the next deadline that is not beyond `limit` and fires that one timer. False, and
    /// nothing moved, when there is none.
    bool fireNext(Instant limit);
    /// Fires everything due up to `target` and stands there; a target that has passed moves
    /// nothing.
    void advanceTo(Instant target);
    void advanceBy(Duration span);

    /// The machine sleeps: both times go on and no timer fires, until the clock is moved again.
    void sleepMachine(Duration span);
    /// The user sets the date. Timers do not notice.
    void setWallClock(Date date);

private:
    using Key = std::pair<Instant, std::uint64_t>;
    struct Timer {
        Duration tolerance;
        Job job;
    };
    using Timers = std::map<Key, Timer>;

    void moveTo(Instant target);

    mutable std::mutex mutex_;  // guards the two times
    Instant continuous_;
    Date wallAtZero_;  // the date when the continuous time was zero
    std::shared_ptr<Timers> timers_ = std::make_shared<Timers>();
    std::uint64_t scheduled_ = 0;
};

}  // namespace vtx
