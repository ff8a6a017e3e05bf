// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxClock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "platform/linux/PollRunLoop.h"

namespace vtx::test {
namespace {

/// Far beyond what a loaded machine takes; reached only when something is broken.
constexpr Duration longEnough = std::chrono::seconds(60);

TEST(LinuxClock, a_timer_fires_from_the_loop_and_not_early) {
    PollRunLoop loop;
    LinuxClock clock(loop);
    const Instant deadline = clock.continuous() + std::chrono::milliseconds(5);
    std::optional<Instant> fired;
    const auto token = clock.schedule(deadline, {}, [&] { fired = clock.continuous(); });
    EXPECT_TRUE(loop.runUntil([&] { return fired.has_value(); }, longEnough));
    EXPECT_GE(fired, deadline);
}

TEST(LinuxClock, timers_fire_in_the_order_of_their_deadlines) {
    PollRunLoop loop;
    LinuxClock clock(loop);
    const Instant now = clock.continuous();
    std::string ran;
    Subscriptions tokens;
    for (const char letter : {'c', 'b', 'a'}) {
        tokens.push_back(clock.schedule(now + std::chrono::milliseconds(letter - 'a'), {},
                                        [&ran, letter] { ran += letter; }));
    }
    EXPECT_TRUE(loop.runUntil([&] { return ran.size() == 3; }, longEnough));
    EXPECT_EQ(ran, "abc");
}

TEST(LinuxClock, a_deadline_that_has_passed_fires_at_once_and_a_job_may_schedule_the_next) {
    PollRunLoop loop;
    LinuxClock clock(loop);
    int fired = 0;
    Subscription token;
    std::function<void()> again = [&] {
        if (++fired < 5) token = clock.schedule(Instant(), {}, [&] { again(); });
    };
    token = clock.schedule(Instant::min(), {}, [&] { again(); });
    EXPECT_TRUE(loop.runUntil([&] { return fired == 5; }, longEnough));
}

TEST(LinuxClock, a_dropped_token_leaves_the_timer_unfired) {
    PollRunLoop loop;
    LinuxClock clock(loop);
    std::string ran;
    auto doomed = clock.schedule(Instant(), {}, [&] { ran += 'x'; });
    const auto kept =
        clock.schedule(clock.continuous() + std::chrono::milliseconds(2), {}, [&] { ran += 'k'; });
    doomed.cancel();
    EXPECT_TRUE(loop.runUntil([&] { return !ran.empty(); }, longEnough));
    EXPECT_EQ(ran, "k");
}

TEST(LinuxClock, a_token_may_outlive_its_clock) {
    PollRunLoop loop;
    Subscription token;
    {
        LinuxClock clock(loop);
        token = clock.schedule(Instant::max(), {}, [] {});
    }
    token.cancel();
    EXPECT_FALSE(token);
}

TEST(LinuxClock, its_times_are_those_of_the_system) {
    PollRunLoop loop;
    const LinuxClock clock(loop);
    const auto before = std::chrono::system_clock::now();
    const Date now = clock.now();
    EXPECT_GE(now, std::chrono::floor<std::chrono::microseconds>(before));
    const Instant first = clock.continuous();
    EXPECT_LE(first, clock.continuous());
}

}  // namespace
}  // namespace vtx::test
