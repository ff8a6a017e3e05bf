// SPDX-License-Identifier: MIT
#include "platform/simulated/ManualClock.h"

#include <gtest/gtest.h>

#include <vector>

namespace vtx {
namespace {

using namespace std::chrono_literals;

/// Notes which timers fired and when.
struct Noted {
    ManualClock clock;
    Instant start = clock.continuous();
    std::vector<int> fired;
    std::vector<Duration> times;
    Subscriptions tokens;

    void schedule(int name, Duration after, Duration tolerance = 0s) {
        tokens.push_back(clock.schedule(start + after, tolerance, [this, name] {
            fired.push_back(name);
            times.push_back(clock.continuous() - start);
        }));
    }
};

TEST(ManualClock, it_stands_at_a_fixed_date_until_it_is_moved) {
    ManualClock clock;
    EXPECT_EQ(clock.now(), ManualClock::start);
    const Instant before = clock.continuous();
    clock.advanceBy(1500ms);
    EXPECT_EQ(clock.now(), ManualClock::start + 1500ms);
    EXPECT_EQ(clock.continuous(), before + 1500ms);
}

TEST(ManualClock, timers_fire_by_deadline_and_then_by_scheduling_each_at_its_own_deadline) {
    Noted n;
    n.schedule(1, 3s);
    n.schedule(2, 1s);
    n.schedule(3, 3s);
    n.schedule(4, 2s);
    n.clock.advanceBy(5s);
    EXPECT_EQ(n.fired, (std::vector{2, 4, 1, 3}));
    EXPECT_EQ(n.times, (std::vector<Duration>{1s, 2s, 3s, 3s}));
    EXPECT_EQ(n.clock.continuous() - n.start, Duration(5s));
}

TEST(ManualClock, a_timer_fires_at_exactly_its_deadline_and_not_before) {
    Noted n;
    n.schedule(1, 1s);
    n.clock.advanceBy(1s - 1ns);
    EXPECT_TRUE(n.fired.empty());
    n.clock.advanceBy(1ns);
    EXPECT_EQ(n.fired, std::vector{1});
    n.clock.advanceBy(10s);
    EXPECT_EQ(n.fired, std::vector{1});
}

TEST(ManualClock, a_timer_that_a_timer_schedules_fires_in_the_same_move_when_it_is_due) {
    Noted n;
    n.tokens.push_back(n.clock.schedule(n.start + 1s, 0s, [&] { n.schedule(7, 2s); }));
    n.clock.advanceBy(3s);
    EXPECT_EQ(n.fired, std::vector{7});
    EXPECT_EQ(n.times, std::vector<Duration>{2s});
}

TEST(ManualClock, pending_timers_show_deadline_and_tolerance) {
    Noted n;
    n.schedule(1, 2s, 200ms);
    n.schedule(2, 1s, 100ms);
    const std::vector<ManualClock::PendingTimer> expected{{n.start + 1s, 100ms},
                                                          {n.start + 2s, 200ms}};
    EXPECT_EQ(n.clock.pending(), expected);
    EXPECT_EQ(n.clock.nextDeadline(), n.start + 1s);
}

TEST(ManualClock, a_dropped_token_takes_its_timer_away) {
    Noted n;
    n.schedule(1, 1s);
    n.tokens.clear();
    EXPECT_FALSE(n.clock.nextDeadline());
    n.clock.advanceBy(2s);
    EXPECT_TRUE(n.fired.empty());
}

TEST(ManualClock, a_timer_may_drop_its_own_token_and_another_one) {
    ManualClock clock;
    const Instant start = clock.continuous();
    int fired = 0;
    Subscription own;
    Subscription other = clock.schedule(start + 2s, 0s, [&] { fired += 10; });
    own = clock.schedule(start + 1s, 0s, [&] {
        own.cancel();
        other.cancel();
        ++fired;
    });
    clock.advanceBy(5s);
    EXPECT_EQ(fired, 1);
}

TEST(ManualClock, a_token_may_outlive_the_clock) {
    Subscription token;
    {
        ManualClock clock;
        token = clock.schedule(clock.continuous() + 1s, 0s, [] {});
    }
    token.cancel();
    EXPECT_FALSE(token);
}

TEST(ManualClock, time_never_goes_back) {
    Noted n;
    n.clock.advanceBy(2s);
    n.clock.advanceTo(n.start + 1s);
    EXPECT_EQ(n.clock.continuous() - n.start, Duration(2s));
    n.schedule(1, 1s);  // overdue
    n.clock.advanceBy(0s);
    EXPECT_EQ(n.times, std::vector<Duration>{2s});
}

TEST(ManualClock, firing_the_next_fires_one_timer_that_is_not_beyond_the_limit) {
    Noted n;
    n.schedule(1, 1s);
    n.schedule(2, 1s);
    n.schedule(3, 3s);
    EXPECT_TRUE(n.clock.fireNext(n.start + 2s));
    EXPECT_EQ(n.fired, std::vector{1});
    EXPECT_TRUE(n.clock.fireNext(n.start + 2s));
    EXPECT_FALSE(n.clock.fireNext(n.start + 2s));
    EXPECT_EQ(n.clock.continuous() - n.start, Duration(1s));
}

TEST(ManualClock, no_timer_fires_while_the_machine_sleeps_and_those_missed_fire_afterwards) {
    Noted n;
    n.schedule(1, 1s);
    n.clock.sleepMachine(60s);
    EXPECT_TRUE(n.fired.empty());
    EXPECT_EQ(n.clock.now(), ManualClock::start + 60s);
    n.clock.advanceBy(0s);
    EXPECT_EQ(n.times, std::vector<Duration>{60s});
}

TEST(ManualClock, setting_the_wall_clock_moves_no_timer) {
    Noted n;
    n.schedule(1, 1s);
    n.clock.setWallClock(ManualClock::start - std::chrono::days(400));
    EXPECT_EQ(n.clock.continuous(), n.start);
    n.clock.advanceBy(1s);
    EXPECT_EQ(n.fired, std::vector{1});
    EXPECT_EQ(n.clock.now(), ManualClock::start - std::chrono::days(400) + 1s);
}

}  // namespace
}  // namespace vtx
