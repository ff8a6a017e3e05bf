// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedProcessors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>

#include "platform/simulated/ManualClock.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;
using Ticks = SimulatedProcessors::Ticks;

struct Machine {
    ManualClock clock;
    SimulatedProcessors processors{clock, MacShape::standard(2, 1)};
};

TEST(SimulatedProcessors, the_standard_machine_numbers_its_efficiency_cores_first) {
    const auto shape = MacShape::standard();
    EXPECT_EQ(shape.cores.size(), 12u);
    EXPECT_EQ(shape.count(CoreKind::performance), 8u);
    EXPECT_TRUE(std::ranges::is_sorted(shape.cores));
    EXPECT_EQ(shape.cores.front(), CoreKind::efficiency);
}

TEST(SimulatedProcessors, a_new_machine_idles_a_hundred_ticks_a_second) {
    Machine m;
    m.clock.advanceBy(3s);
    EXPECT_EQ(m.processors.ticks(), std::vector<Ticks>(3, {0, 0, 300, 0}));
}

TEST(SimulatedProcessors, a_load_counts_exactly_its_fractions) {
    Machine m;
    m.processors.setLoad(1, {.user = 0.3, .system = 0.1, .nice = 0.05});
    m.clock.advanceBy(2s);
    EXPECT_EQ(m.processors.ticks()[1], (Ticks{60, 20, 110, 10}));
    EXPECT_EQ(m.processors.ticks()[0], (Ticks{0, 0, 200, 0}));
}

TEST(SimulatedProcessors, parts_of_a_tick_are_kept_whenever_somebody_looks) {
    Machine m;
    m.processors.setLoad(0, {.user = 0.5});
    for (int i = 0; i < 1000; ++i) {
        m.clock.advanceBy(7ms);
        (void)m.processors.ticks();
    }
    EXPECT_EQ(m.processors.ticks()[0], (Ticks{350, 0, 350, 0}));
}

TEST(SimulatedProcessors, a_load_holds_from_when_it_was_set) {
    Machine m;
    m.clock.advanceBy(1s);
    m.processors.setLoadOf(CoreKind::performance, {.user = 1.0});
    m.clock.advanceBy(1s);
    m.processors.setLoadOfAll({});
    m.clock.advanceBy(1s);
    const auto ticks = m.processors.ticks();
    EXPECT_EQ(ticks[0], (Ticks{0, 0, 300, 0}));
    EXPECT_EQ(ticks[1], (Ticks{100, 0, 200, 0}));
    EXPECT_EQ(ticks[2], (Ticks{100, 0, 200, 0}));
}

TEST(SimulatedProcessors, senseless_loads_are_cut) {
    Machine m;
    m.processors.setLoad(0, {.user = 0.8, .system = 0.8, .nice = 0.8});
    m.processors.setLoad(1, {.user = -1, .system = 7});
    m.processors.setLoad(2, {.user = std::numeric_limits<double>::quiet_NaN()});
    m.clock.advanceBy(1s);
    const auto ticks = m.processors.ticks();
    EXPECT_EQ(ticks[0], (Ticks{80, 20, 0, 0}));
    EXPECT_EQ(ticks[1], (Ticks{0, 100, 0, 0}));
    EXPECT_EQ(ticks[2], (Ticks{0, 0, 100, 0}));
}

TEST(SimulatedProcessors, counters_wrap_at_32_bits) {
    Machine m;
    m.processors.setTicks({0, 0, 4'294'967'290u, 0});
    m.clock.advanceBy(110ms);
    EXPECT_EQ(m.processors.ticks()[0], (Ticks{0, 0, 5, 0}));
}

TEST(SimulatedProcessors, a_month_without_anybody_looking_is_counted_whole) {
    Machine m;
    m.processors.setLoad(0, {.user = 0.25});
    m.clock.advanceBy(std::chrono::days(30));
    EXPECT_EQ(m.processors.ticks()[0], (Ticks{64'800'000, 0, 194'400'000, 0}));
}

TEST(SimulatedProcessors, an_offline_core_keeps_its_place_and_stands_still) {
    Machine m;
    m.clock.advanceBy(1s);
    m.processors.setOnline(1, false);
    m.clock.advanceBy(1s);
    ASSERT_EQ(m.processors.ticks().size(), 3u);
    EXPECT_EQ(m.processors.ticks()[1], (Ticks{0, 0, 100, 0}));
    m.processors.setOnline(1, true);
    m.clock.advanceBy(1s);
    EXPECT_EQ(m.processors.ticks()[1], (Ticks{0, 0, 200, 0}));
    EXPECT_EQ(m.processors.ticks()[0], (Ticks{0, 0, 300, 0}));
}

TEST(SimulatedProcessors, a_processor_that_went_away_is_not_told_of_and_counts_again_once_back) {
    Machine m;
    m.clock.advanceBy(1s);
    m.processors.setProcessorCount(2);
    m.clock.advanceBy(1s);
    EXPECT_EQ(m.processors.ticks().size(), 2u);
    m.processors.setProcessorCount(99);
    m.clock.advanceBy(1s);
    ASSERT_EQ(m.processors.ticks().size(), 3u);
    EXPECT_EQ(m.processors.ticks()[2], (Ticks{0, 0, 200, 0}));
}

TEST(SimulatedProcessors, no_counter_counts_while_the_machine_sleeps) {
    Machine m;
    m.processors.setAsleep(true);
    m.clock.sleepMachine(3600s);
    m.processors.setAsleep(false);
    m.clock.advanceBy(1s);
    EXPECT_EQ(m.processors.ticks()[0], (Ticks{0, 0, 100, 0}));
}

TEST(SimulatedProcessors, a_core_that_is_not_there_is_a_mistake_of_the_caller) {
    Machine m;
    EXPECT_DEATH(m.processors.setLoad(3, {}), "no core 3");
}

/// Busy fraction of each core over the span since the counters were zero.
std::vector<double> busyOf(const std::vector<Ticks>& all) {
    std::vector<double> busy;
    for (const auto& [user, system, idle, nice] : all) {
        const double working = user + system + nice;
        busy.push_back(working / (working + idle));
    }
    return busy;
}

TEST(SimulatedProcessors, a_living_load_is_the_same_for_the_same_seed_however_often_it_is_read) {
    Machine often;
    Machine once;
    Machine other;
    often.processors.live(7);
    once.processors.live(7);
    other.processors.live(8);
    for (int i = 0; i < 777; ++i) {
        often.clock.advanceBy(77ms);
        (void)often.processors.ticks();
    }
    once.clock.advanceBy(777 * 77ms);
    other.clock.advanceBy(777 * 77ms);
    EXPECT_EQ(often.processors.ticks(), once.processors.ticks());
    EXPECT_NE(other.processors.ticks(), once.processors.ticks());
}

TEST(SimulatedProcessors, a_living_machine_is_neither_idle_nor_swamped) {
    ManualClock clock;
    SimulatedProcessors processors(clock, MacShape::standard());
    processors.live(1);
    clock.advanceBy(std::chrono::minutes(10));
    for (const double busy : busyOf(processors.ticks())) {
        EXPECT_GT(busy, 0.01);
        EXPECT_LT(busy, 0.60);
    }
}

TEST(SimulatedProcessors, every_tick_of_a_living_core_is_counted_once) {
    Machine m;
    m.processors.live(3);
    m.clock.advanceBy(100s);
    for (const auto& [user, system, idle, nice] : m.processors.ticks())
        EXPECT_NEAR(user + system + idle + nice, 10'000.0, 4.0);
}

TEST(SimulatedProcessors, setting_a_load_ends_the_living_one_for_that_core) {
    Machine m;
    m.processors.live(3);
    m.processors.setLoad(0, {.user = 1.0});
    m.clock.advanceBy(10s);
    EXPECT_EQ(m.processors.ticks()[0], (Ticks{1000, 0, 0, 0}));
    EXPECT_GT(m.processors.ticks()[1][2], 0u);
}

TEST(LivingLoad, it_is_smooth_and_within_its_range) {
    const LivingLoad living(42);
    for (std::size_t core = 0; core < 12; ++core) {
        const auto kind = core < 4 ? CoreKind::efficiency : CoreKind::performance;
        double before = living.at(kind, core, 0s).user;
        for (Duration time = 0s; time < 60s; time += 20ms) {
            const CoreLoad load = living.at(kind, core, time);
            ASSERT_GE(std::min({load.user, load.system, load.nice}), 0.0);
            ASSERT_LE(load.user + load.system + load.nice, 1.0 + 1e-9);
            ASSERT_LT(std::abs(load.user - before), 0.05);
            before = load.user;
        }
    }
}

TEST(LivingLoad, the_performance_cores_have_quiet_times_and_bursts) {
    const LivingLoad living(42);
    double lowest = 1;
    double highest = 0;
    for (Duration time = 0s; time < 600s; time += 1s) {
        const double user = living.at(CoreKind::performance, 4, time).user;
        lowest = std::min(lowest, user);
        highest = std::max(highest, user);
    }
    EXPECT_LT(lowest, 0.05);
    EXPECT_GT(highest, 0.30);
}

TEST(SimulatedProcessors, an_engine_may_read_while_the_loads_are_changed) {
    ManualClock clock;
    SimulatedProcessors processors(clock, MacShape::standard());
    std::vector<Ticks> last;
    std::thread engine([&] {
        for (int i = 0; i < 500; ++i) last = processors.ticks();
    });
    for (int i = 0; i < 500; ++i) {
        processors.setLoadOfAll({.user = 0.5});
        clock.advanceBy(10ms);
    }
    engine.join();
    EXPECT_EQ(last.size(), 12u);
    EXPECT_EQ(processors.ticks()[0], (Ticks{250, 0, 250, 0}));
}

}  // namespace
}  // namespace vtx
