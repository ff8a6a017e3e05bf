// SPDX-License-Identifier: MIT
#include "base/TaskScope.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

#include "base/Confined.h"
#include "base/SerialExecutor.h"
#include "base/Sleep.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

TEST(TaskScope, a_task_starts_in_a_job_and_leaves_the_scope_when_it_ends) {
    TestBench bench;
    TaskScope scope(bench.main);
    bool ran = false;
    scope.spawn([&](std::stop_token) -> Task<> {
        ran = true;
        co_return;
    });
    EXPECT_FALSE(ran);
    EXPECT_EQ(scope.size(), 1u);
    bench.settle();
    EXPECT_TRUE(ran);
    EXPECT_EQ(scope.size(), 0u);
}

TEST(TaskScope, what_the_body_captured_lasts_as_long_as_the_task) {
    TestBench bench;
    TaskScope scope(bench.main);
    auto owned = std::make_shared<int>(3);
    const std::weak_ptr<int> weak = owned;
    int seen = 0;
    scope.spawn([&, kept = std::move(owned)](std::stop_token stop) -> Task<> {
        co_await bench.clock.sleepUntil(bench.clock.continuous() + 1s, 0s, stop);
        seen = *kept;
    });
    bench.advance(1s);
    EXPECT_EQ(seen, 3);
    EXPECT_TRUE(weak.expired());
}

TEST(TaskScope, its_end_between_that_of_a_task_and_the_clearing_up_drops_the_task) {
    TestBench bench;
    auto owned = std::make_shared<int>(3);
    const std::weak_ptr<int> weak = owned;
    int seen = 0;
    {
        TaskScope scope(bench.main);
        scope.spawn([&seen, kept = std::move(owned)](std::stop_token) -> Task<> {
            seen = *kept;
            co_return;
        });
        ASSERT_TRUE(bench.main.runOne());
        EXPECT_EQ(seen, 3);
        EXPECT_EQ(scope.size(), 1u);
        EXPECT_FALSE(weak.expired());
    }
    EXPECT_TRUE(weak.expired());
    bench.settle();
}

TEST(TaskScope, its_end_drops_suspended_frames_with_their_locals_and_timers) {
    TestBench bench;
    const auto kept = std::make_shared<int>(1);
    bool resumed = false;
    {
        TaskScope scope(bench.main);
        scope.spawn([&](std::stop_token stop) -> Task<> {
            const auto local = kept;
            co_await bench.clock.sleepUntil(bench.clock.continuous() + 1s, 0s, stop);
            resumed = true;
        });
        bench.settle();
        EXPECT_EQ(kept.use_count(), 2);
        EXPECT_EQ(bench.clock.pending().size(), 1u);
    }
    EXPECT_EQ(kept.use_count(), 1);
    EXPECT_TRUE(bench.clock.pending().empty());
    bench.advance(2s);
    EXPECT_FALSE(resumed);
}

TEST(TaskScope, its_end_drops_a_task_that_has_not_started) {
    TestBench bench;
    bool ran = false;
    {
        TaskScope scope(bench.main);
        scope.spawn([&](std::stop_token) -> Task<> {
            ran = true;
            co_return;
        });
    }
    bench.settle();
    EXPECT_FALSE(ran);
}

TEST(TaskScope, its_end_between_a_completion_and_its_resumption_drops_the_task) {
    TestBench bench;
    bool resumed = false;
    std::optional<TaskScope> scope(bench.main);
    auto handle = scope->spawn([&](std::stop_token stop) -> Task<> {
        co_await bench.clock.sleepUntil(bench.clock.continuous() + 1s, 0s, stop);
        resumed = true;
    });
    bench.settle();
    handle.cancel();
    EXPECT_FALSE(bench.main.isEmpty());
    scope.reset();
    bench.settle();
    EXPECT_FALSE(resumed);
}

TEST(TaskScope, a_task_may_spawn_others) {
    TestBench bench;
    TaskScope scope(bench.main);
    std::vector<int> ran;
    scope.spawn([&](std::stop_token) -> Task<> {
        scope.spawn([&](std::stop_token) -> Task<> {
            ran.push_back(2);
            co_return;
        });
        ran.push_back(1);
        co_return;
    });
    bench.settle();
    EXPECT_EQ(ran, (std::vector{1, 2}));
    EXPECT_EQ(scope.size(), 0u);
}

TEST(TaskScope, what_an_ended_task_owned_may_use_the_scope_as_it_goes) {
    TestBench bench;
    TaskScope scope(bench.main);
    bool ran = false;
    struct SpawnsAtEnd {
        TaskScope& scope;
        bool& ran;
        ~SpawnsAtEnd() {
            scope.spawn([&flag = ran](std::stop_token) -> Task<> {
                flag = true;
                co_return;
            });
        }
    };
    scope.spawn([owned = std::make_shared<SpawnsAtEnd>(scope, ran)](std::stop_token) -> Task<> {
        (void)owned;
        co_return;
    });
    bench.settle();
    EXPECT_TRUE(ran);
    EXPECT_EQ(scope.size(), 0u);
}

struct Sleeper {
    TestBench bench;
    TaskScope scope{bench.main};
    std::optional<SleepEnd> end;
    TaskHandle handle = scope.spawn([this](std::stop_token stop) -> Task<> {
        end = co_await bench.clock.sleepUntil(bench.clock.continuous() + 10s, 1s, stop);
    });
};

TEST(Sleep, it_ends_at_its_deadline_and_hands_its_tolerance_to_the_clock) {
    Sleeper s;
    s.bench.settle();
    const ManualClock::PendingTimer expected{s.bench.clock.continuous() + 10s, 1s};
    EXPECT_EQ(s.bench.clock.pending(), std::vector{expected});
    s.bench.advance(10s - 1ns);
    EXPECT_FALSE(s.end);
    s.bench.advance(1ns);
    EXPECT_EQ(s.end, SleepEnd::elapsed);
}

TEST(Sleep, a_stop_wakes_it_at_once_and_takes_its_timer_away) {
    Sleeper s;
    s.bench.advance(3s);
    s.handle.cancel();
    EXPECT_FALSE(s.end) << "resumes through the queue, not inside the call";
    s.bench.settle();
    EXPECT_EQ(s.end, SleepEnd::cancelled);
    EXPECT_TRUE(s.bench.clock.pending().empty());
}

TEST(Sleep, a_stop_asked_for_before_lets_it_not_begin) {
    Sleeper s;
    s.handle.cancel();
    s.bench.main.runOne();
    EXPECT_EQ(s.end, SleepEnd::cancelled);
    EXPECT_TRUE(s.bench.clock.pending().empty());
}

TEST(Sleep, a_stop_together_with_the_deadline_resumes_once) {
    Sleeper s;
    s.bench.settle();
    s.handle.cancel();             // the resumption is queued
    s.bench.clock.advanceBy(10s);  // and the timer fires before it
    EXPECT_EQ(s.end, SleepEnd::cancelled);
    s.bench.settle();
    EXPECT_EQ(s.scope.size(), 0u);
}

TEST(Sleep, a_stop_after_the_end_changes_nothing) {
    Sleeper s;
    s.bench.advance(10s);
    s.handle.cancel();
    s.bench.settle();
    EXPECT_EQ(s.end, SleepEnd::elapsed);
}

TEST(Sleep, a_hundred_thousand_in_a_loop_do_not_grow_the_stack) {
    TestBench bench;
    TaskScope scope(bench.main);
    int count = 0;
    scope.spawn([&](std::stop_token stop) -> Task<> {
        for (; count < 100'000; ++count)
            co_await bench.clock.sleepUntil(bench.clock.continuous() + 1ms, 0s, stop);
    });
    bench.advance(200s);
    EXPECT_EQ(count, 100'000);
    EXPECT_EQ(scope.size(), 0u);
}

struct Engine {
    int next() { return ++count; }
    int count = 0;
};

TEST(Confined, steps_on_a_real_thread_come_home_whole_and_in_order) {
    QueueExecutor home;
    SerialExecutor thread;
    const Confined<Engine> engine(thread, std::make_shared<Engine>());
    TaskScope scope(home);
    std::vector<int> results;
    scope.spawn([&](std::stop_token) -> Task<> {
        for (int i = 0; i < 1000; ++i) results.push_back(co_await engine.run(&Engine::next));
    });
    while (scope.size() > 0)
        if (!home.runOne()) std::this_thread::yield();
    ASSERT_EQ(results.size(), 1000u);
    EXPECT_EQ(results.front(), 1);
    EXPECT_EQ(results.back(), 1000);
}

TEST(Confined, a_scope_may_end_at_any_moment_of_a_step_on_a_real_thread) {
    QueueExecutor home;
    int resumed = 0;
    {
        SerialExecutor thread;
        for (int i = 0; i < 200; ++i) {
            const Confined<Engine> engine(thread, std::make_shared<Engine>());
            TaskScope scope(home);
            scope.spawn([&](std::stop_token) -> Task<> {
                co_await engine.run(&Engine::next);
                ++resumed;
            });
            home.drain();
        }
    }
    const int before = resumed;
    home.drain();
    EXPECT_EQ(resumed, before);
}

}  // namespace
}  // namespace vtx
