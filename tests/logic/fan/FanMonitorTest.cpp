// SPDX-License-Identifier: MIT
#include "fan/FanMonitor.h"

#include <gtest/gtest.h>

#include <limits>

#include "smc/SMCCode.h"
#include "support/SMCBench.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

// An SMC that tells some number of fans, whose keys the test adds.
struct FanBench : SMCBench {
    explicit FanBench(std::uint8_t count = 1) { add("FNum", "ui8 ", encodeSMCUnsigned8(count)); }

    void addFan(int index, float current, float target, float least, float most) {
        const auto key = [index](const char* suffix) {
            return fmt::format("F{}{}", index, suffix);
        };
        addFloat(key("Ac"), current);
        addFloat(key("Tg"), target);
        addFloat(key("Mn"), least);
        addFloat(key("Mx"), most);
    }
    FanStats refreshed() {
        FanMonitor monitor(ports());
        monitor.refresh();
        return *monitor.latest;
    }
};

TEST(FanMonitor, without_an_smc_it_says_so_and_stays_empty) {
    TestBench b;
    b.mac.smc.services.clear();
    FanMonitor monitor(b.ports());
    EXPECT_TRUE(b.log.contains(LogLevel::standard, "FanMonitor",
                               "SMC fan bridge unavailable — fan stats will stay empty"));
    int told = 0;
    const auto token = monitor.objectWillChange.subscribe([&told] { ++told; });
    b.advance(1s);
    monitor.refresh();
    EXPECT_EQ(told, 0);
    EXPECT_EQ(*monitor.latest, FanStats::empty());
}

TEST(FanMonitor, the_empty_reading_has_the_time_of_its_first_use) {
    FanBench b(0);
    b.advance(5s);
    const Date firstUse = b.clock.now();
    FanMonitor monitor(b.ports());
    b.advance(5s);
    monitor.refresh();
    EXPECT_EQ(*monitor.latest, (FanStats{{}, firstUse}));
}

TEST(FanMonitor, publishes_every_fan_in_order) {
    FanBench b(2);
    b.addFan(0, 2100.4F, 2200, 1200, 5800);
    b.addFan(1, 2050.5F, 2150, 1250, 6000);
    EXPECT_EQ(b.refreshed(), (FanStats{{{0, 2100, 2200, 1200, 5800}, {1, 2051, 2150, 1250, 6000}},
                                       b.clock.now()}));
}

TEST(FanMonitor, a_machine_without_fans_has_the_empty_reading) {
    FanBench b(0);
    b.addFan(0, 2000, 2000, 1200, 5800);
    EXPECT_EQ(b.refreshed(), FanStats::empty());
    b.smc.remove("FNum");
    EXPECT_EQ(b.refreshed(), FanStats::empty());
    b.add("FNum", "ui8 ", {});
    EXPECT_EQ(b.refreshed(), FanStats::empty());
}

TEST(FanMonitor, the_number_of_fans_is_the_first_byte_whatever_its_type) {
    FanBench b;
    b.addFan(0, 2000, 2000, 1200, 5800);
    b.addFan(1, 2000, 2000, 1200, 5800);
    b.add("FNum", "ui16", encodeSMCUnsigned16(0x0200));
    EXPECT_EQ(b.refreshed().fans.size(), 2U);
}

TEST(FanMonitor, a_fan_without_a_current_speed_is_left_out_of_that_poll) {
    FanBench b(2);
    b.addFan(0, 2000, 2000, 1200, 5800);
    b.addFan(1, 2000, 2000, 1200, 5800);
    b.smc.change("F0Ac", [](auto& key) { key.failsEvery = 2; });
    FanMonitor monitor(b.ports());
    monitor.refresh();
    EXPECT_EQ(monitor.latest->fans.size(), 2U);
    monitor.refresh();
    ASSERT_EQ(monitor.latest->fans.size(), 1U);
    EXPECT_EQ(monitor.latest->fans[0].index, 1);
    EXPECT_TRUE(b.log.lines("FanMonitor").empty());
}

TEST(FanMonitor, other_speeds_that_fail_are_absent_while_the_fan_stays) {
    FanBench b;
    b.addFloat("F0Ac", 2000);
    b.addFloat("F0Tg", -1);
    b.add("F0Mn", "ch8*", {std::byte{7}});
    EXPECT_EQ(b.refreshed().fans, (std::vector<FanReading>{{0, 2000, {}, {}, {}}}));
}

TEST(FanMonitor, speeds_count_from_0_to_below_12000) {
    FanBench b;
    b.addFan(0, 0, 0, 1200, 0);
    const auto currentAt = [&b](float value) -> std::optional<int> {
        b.smc.setFloat("F0Ac", value);
        const auto fans = b.refreshed().fans;
        return fans.empty() ? std::nullopt : std::optional(fans[0].currentRPM);
    };
    EXPECT_EQ(currentAt(11999.6F), 12000);
    EXPECT_EQ(currentAt(0.0F), 0);
    EXPECT_EQ(currentAt(0.5F), 1);
    for (const float value : {12000.0F, -0.1F, 1e30F, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_EQ(currentAt(value), std::nullopt) << value;
}

TEST(FanMonitor, a_fan_that_stands_stays_where_anything_tells_that_it_turns) {
    const auto stays = [](float target, float least, float most) {
        FanBench b;
        b.addFan(0, 0, target, least, most);
        return b.refreshed().fans.size() == 1;
    };
    EXPECT_FALSE(stays(0, 0, 0));
    EXPECT_FALSE(stays(0, 0, 0.4F)) << "it rounds to 0";
    EXPECT_TRUE(stays(0, 0, 0.5F)) << "and this to 1";
    EXPECT_TRUE(stays(0, 1200, 0));
    EXPECT_TRUE(stays(1, 0, 0));
    EXPECT_TRUE(stays(0, 0, 5800));
}

TEST(FanMonitor, a_fan_of_which_nothing_is_known_but_half_a_turn_is_no_standing_one) {
    FanBench b;
    b.addFloat("F0Ac", 0.5F);
    EXPECT_EQ(b.refreshed().fans, (std::vector<FanReading>{{0, 1, {}, {}, {}}}));
    b.smc.setFloat("F0Ac", 0.4F);
    EXPECT_TRUE(b.refreshed().fans.empty());
}

TEST(FanMonitor, a_poll_that_leaves_no_fan_is_published_with_its_time) {
    FanBench b(3);
    FanMonitor monitor(b.ports());
    b.advance(7s);
    monitor.refresh();
    EXPECT_EQ(*monitor.latest, (FanStats{{}, b.clock.now()}));
}

TEST(FanMonitor, speeds_come_in_the_keys_own_type) {
    FanBench b;
    b.add("F0Ac", "fpe2", encodeSMCQuarters(1999.75));
    b.add("F0Mn", "fp2e", encodeSMCQuarters(1200));
    b.add("F0Mx", "ui16", encodeSMCUnsigned16(5800));
    b.add("F0Tg", "{rpm", encodeSMCQuarters(2100));
    EXPECT_EQ(b.refreshed().fans, (std::vector<FanReading>{{0, 2000, 2100, 1200, 5800}}));
}

TEST(FanMonitor, two_hundred_and_fifty_five_fans_that_do_not_answer_are_survived) {
    FanBench b(255);
    b.addFan(0, 2000, 2000, 1200, 5800);
    EXPECT_EQ(b.refreshed().fans.size(), 1U);
}

TEST(FanMonitor, nonsense_is_survived) {
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        FanBench b(2);
        FanMonitor monitor(b.ports());
        b.smc.talkNonsense(seed);
        for (int i = 0; i < 10; ++i) monitor.refresh();
        for (const FanReading& fan : monitor.latest->fans)
            EXPECT_TRUE(fan.currentRPM >= 0 && fan.currentRPM <= 12000);
    }
}

TEST(FanMonitor, a_steady_poll_reads_each_key_once_and_asks_nothing_twice) {
    FanBench b(2);
    b.addFan(0, 2000, 2000, 1200, 5800);
    b.addFan(1, 2000, 2000, 1200, 5800);
    FanMonitor monitor(b.ports());
    monitor.refresh();
    b.platform.resetCalls();
    monitor.refresh();
    EXPECT_EQ(b.platform.instruments.counter.all(),
              (CallCounter::Counts{{"IOConnectCallStructMethod", 9}, {"SMC:readValue", 9}}));
}

TEST(FanMonitor, has_a_connection_of_its_own_and_closes_it) {
    FanBench b;
    {
        const auto sensors = b.open();
        const FanMonitor monitor(b.ports());
        EXPECT_EQ(b.platform.outstanding(), 2U);
    }
    EXPECT_EQ(b.platform.outstanding(), 0U);
}

TEST(SMCFanBridge, a_key_of_another_type_or_size_than_expected_is_nothing) {
    FanBench b;
    b.addFan(0, 2000, 2000, 1200, 5800);
    auto bridge = SMCFanBridge::open(b.platform.smc);
    EXPECT_TRUE(bridge->readRaw("F0Ac"));
    EXPECT_TRUE(bridge->readRaw("F0Ac", smcTypes::flt, 4));
    EXPECT_FALSE(bridge->readRaw("F0Ac", smcTypes::fpe2));
    EXPECT_FALSE(bridge->readRaw("F0Ac", smcTypes::flt, 2));
    EXPECT_FALSE(bridge->readRaw("F9Ac"));
}

TEST(FanMonitor, on_the_simulated_machine_fans_turn_faster_as_it_warms) {
    TestBench b;
    FanMonitor monitor(b.ports());
    monitor.refresh();
    ASSERT_EQ(monitor.latest->fans.size(), 2U);
    const int idle = *monitor.latest->maxRPM();
    EXPECT_NEAR(*monitor.latest->averageLoad(), 0.0, 0.01);
    b.mac.processors.setLoadOfAll({1, 0, 0});
    b.advance(60s);
    monitor.refresh();
    EXPECT_GT(*monitor.latest->maxRPM(), idle + 1000);
    EXPECT_GT(*monitor.latest->averageLoad(), 0.5);
}

FanReading fan(int current, std::optional<int> least, std::optional<int> most) {
    return {0, current, std::nullopt, least, most};
}

std::optional<double> loadOf(std::vector<FanReading> fans) {
    return FanStats{std::move(fans), {}}.averageLoad();
}

TEST(FanStats, the_load_is_the_place_between_lowest_and_highest_speed) {
    EXPECT_EQ(loadOf({fan(2000, 1000, 5000)}), 0.25);
    EXPECT_EQ(loadOf({fan(500, 1000, 5000)}), 0.0);
    EXPECT_EQ(loadOf({fan(6000, 1000, 5000)}), 1.0);
    EXPECT_EQ(loadOf({fan(2000, 1000, 5000), fan(5000, 1000, 5000)}), 0.625);
}

TEST(FanStats, a_fan_without_a_range_does_not_enter_the_load) {
    EXPECT_EQ(loadOf({}), std::nullopt);
    EXPECT_EQ(loadOf({fan(2000, 3000, 3000)}), std::nullopt);
    EXPECT_EQ(loadOf({fan(2000, 3000, 1000)}), std::nullopt);
    EXPECT_EQ(loadOf({fan(2000, {}, 5000), fan(2000, 1000, {})}), std::nullopt);
    EXPECT_EQ(loadOf({fan(9000, 3000, 3000), fan(3000, 1000, 5000)}), 0.5);
}

TEST(FanStats, the_fastest_fan_counts) {
    EXPECT_EQ((FanStats{{}, {}}.maxRPM()), std::nullopt);
    EXPECT_EQ((FanStats{{fan(0, {}, {}), fan(2100, {}, {}), fan(2000, {}, {})}, {}}.maxRPM()),
              2100);
}

}  // namespace
}  // namespace vtx
