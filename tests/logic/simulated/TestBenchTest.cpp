// SPDX-License-Identifier: MIT
#include "support/TestBench.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace vtx {
namespace {

using namespace std::chrono_literals;

TEST(TestBench, settling_runs_jobs_that_the_queues_post_to_each_other) {
    TestBench bench;
    std::string order;
    bench.main.post([&] {
        order += "m";
        bench.engine.post([&] {
            order += "e";
            bench.main.post([&] { order += "m"; });
        });
    });
    bench.settle();
    EXPECT_EQ(order, "mem");
    EXPECT_TRUE(bench.main.isEmpty() && bench.engine.isEmpty());
}

TEST(TestBench, advancing_settles_at_each_deadline_before_the_time_goes_on) {
    TestBench bench;
    const Instant start = bench.clock.continuous();
    std::vector<Duration> times;
    Subscriptions timers;
    for (const Duration after : {Duration(2s), Duration(1s), Duration(9s)}) {
        timers.push_back(bench.clock.schedule(start + after, 0s, [&] {
            bench.engine.post([&] { times.push_back(bench.clock.continuous() - start); });
        }));
    }
    bench.advance(5s);
    EXPECT_EQ(times, (std::vector<Duration>{1s, 2s}));
    EXPECT_EQ(bench.clock.continuous() - start, Duration(5s));
}

TEST(TestBench, a_job_that_posts_itself_without_end_fails_the_test) {
    TestBench bench;
    std::function<void()> again = [&] { bench.main.post([&] { again(); }); };
    again();
    EXPECT_THROW(bench.settle(), std::runtime_error);
}

TEST(TestBench, its_log_takes_the_lines_of_the_process_while_it_lives) {
    const Logger logger("Bench");
    TestBench outer;
    {
        TestBench inner;
        logger.info("inside");
        EXPECT_TRUE(inner.log.contains("inside"));
    }
    logger.info("outside");
    EXPECT_TRUE(outer.log.contains("outside"));
    EXPECT_FALSE(outer.log.contains("inside"));
}

TEST(TestBench, a_sleep_of_the_machine_is_told_before_and_after_the_time_passed) {
    TestBench bench;
    const Date start = bench.clock.now();
    std::vector<Date> told;
    const auto sleep =
        bench.platform.workspace.onWillSleep([&] { told.push_back(bench.clock.now()); });
    const auto wake =
        bench.platform.workspace.onDidWake([&] { told.push_back(bench.clock.now()); });
    bench.sleepMachine(3600s);
    EXPECT_EQ(told, (std::vector<Date>{start, start + 3600s}));
    EXPECT_EQ(bench.mac.processors.ticks()[0][2], 0u) << "no idle ticks while asleep";
}

}  // namespace
}  // namespace vtx
