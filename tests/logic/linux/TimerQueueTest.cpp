// SPDX-License-Identifier: MIT
#include "platform/linux/TimerQueue.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace vtx::test {
namespace {

Instant at(double second) { return Instant(seconds(second)); }

/// Timers that leave their letter when they run.
struct Timers {
    TimerQueue::Id add(char letter, double deadline, double tolerance = 0) {
        return queue.add(at(deadline), seconds(tolerance), [this, letter] { ran += letter; });
    }
    TimerQueue queue;
    std::string ran;
};

TEST(TimerQueue, nothing_pending_wakes_nobody) { EXPECT_EQ(Timers().queue.wakeAt(), std::nullopt); }

TEST(TimerQueue, a_timer_alone_is_not_late_on_purpose) {
    Timers timers;
    timers.add('a', 1.0, 0.5);
    EXPECT_EQ(timers.queue.wakeAt(), at(1.0));
}

TEST(TimerQueue, timers_within_their_tolerance_share_one_waking) {
    Timers timers;
    timers.add('a', 1.0, 0.1);
    timers.add('b', 1.08, 0.1);
    timers.add('c', 1.05, 0.0);
    timers.add('d', 1.2, 0.1);
    EXPECT_EQ(timers.queue.wakeAt(), at(1.05));
    timers.queue.runDue(at(1.05));
    EXPECT_EQ(timers.ran, "ac");
    EXPECT_EQ(timers.queue.wakeAt(), at(1.08));
}

TEST(TimerQueue, a_deadline_at_the_edge_of_a_tolerance_is_still_shared) {
    Timers timers;
    timers.add('a', 1.0, 0.1);
    timers.add('b', 1.1);
    EXPECT_EQ(timers.queue.wakeAt(), at(1.1));
}

TEST(TimerQueue, due_timers_run_by_deadline_and_then_in_the_order_they_were_added) {
    Timers timers;
    timers.add('c', 2.0);
    timers.add('a', 1.0);
    timers.add('d', 2.0);
    timers.add('b', 1.0);
    timers.add('e', 3.1);
    timers.queue.runDue(at(3.0));
    EXPECT_EQ(timers.ran, "abcd");
}

TEST(TimerQueue, no_timer_runs_before_its_deadline) {
    Timers timers;
    timers.add('a', 1.0, 0.5);
    timers.queue.runDue(at(1.0) - Duration(1));
    EXPECT_EQ(timers.ran, "");
    timers.queue.runDue(at(1.0));
    EXPECT_EQ(timers.ran, "a");
    EXPECT_TRUE(timers.queue.isEmpty());
}

TEST(TimerQueue, a_cancelled_timer_neither_runs_nor_wakes) {
    Timers timers;
    const auto first = timers.add('a', 1.0);
    timers.add('b', 2.0);
    timers.queue.cancel(first);
    EXPECT_EQ(timers.queue.wakeAt(), at(2.0));
    timers.queue.runDue(at(5.0));
    timers.queue.cancel(first);
    EXPECT_EQ(timers.ran, "b");
}

TEST(TimerQueue, a_job_may_cancel_one_that_is_due_with_it) {
    Timers timers;
    TimerQueue::Id doomed = 0;
    timers.queue.add(at(1.0), {}, [&] { timers.queue.cancel(doomed); });
    doomed = timers.add('x', 1.0);
    timers.queue.runDue(at(1.0));
    EXPECT_EQ(timers.ran, "");
}

TEST(TimerQueue, what_a_job_adds_waits_for_the_next_time_even_if_it_is_due) {
    Timers timers;
    timers.queue.add(at(1.0), {}, [&] { timers.add('b', 0.5); });
    timers.add('a', 1.0);
    timers.queue.runDue(at(1.0));
    EXPECT_EQ(timers.ran, "a");
    EXPECT_EQ(timers.queue.wakeAt(), at(0.5));
    timers.queue.runDue(at(1.0));
    EXPECT_EQ(timers.ran, "ab");
}

TEST(TimerQueue, a_job_that_goes_may_cancel_another_one) {
    Timers timers;
    const auto other = timers.add('x', 2.0);
    std::shared_ptr<void> owned(nullptr, [&](void*) { timers.queue.cancel(other); });
    const auto first = timers.queue.add(at(1.0), {}, [owned = std::move(owned)] {});
    timers.queue.cancel(first);
    EXPECT_TRUE(timers.queue.isEmpty());
}

TEST(TimerQueue, extreme_times_do_not_overflow) {
    Timers timers;
    timers.queue.add(Instant::max(), Duration::max(), [] {});
    EXPECT_EQ(timers.queue.wakeAt(), Instant::max());
    timers.queue.add(Instant::min(), Duration::min(), [] {});
    EXPECT_EQ(timers.queue.wakeAt(), Instant::min());
}

}  // namespace
}  // namespace vtx::test
