// SPDX-License-Identifier: MIT
#include "telemetry/IOReportBridge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "platform/simulated/Operations.h"
#include "support/Channels.h"
#include "support/LibraryAt.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;
using testing::Optional;
using testing::Pair;

using States = std::vector<std::pair<std::string, std::int64_t>>;

// A bridge over channels that the test writes down; what they hold counts as the difference.
struct Bridged {
    TestBench bench;
    std::shared_ptr<IOReportBridge> bridge =
        IOReportBridge::load(bench.platform.ioReport, bench.clock);
    CoreLayout layout;

    Bridged() {
        layout.pCoreFrequencyStepsMHz = {600, 1000};
        layout.eCoreFrequencyStepsMHz = {400, 800};
    }
    std::optional<ClusterClockSample> sample(std::vector<SimulatedChannel> channels) {
        bench.mac.channels.script(std::move(channels));
        // So that it is the bridge that picks.
        bench.failures.failNext(operations::ioReportCopyChannelsAll);
        const auto delta =
            bridge->library().copyChannelsInGroup("CPU Stats", "CPU Core Performance States");
        return bridge->clusterClockSample(*delta, layout);
    }
    std::optional<double> average(SimulatedChannel channel, std::vector<double> stepsMHz) {
        return bridge->averageFrequency({&channel}, stepsMHz);
    }
    std::optional<double> average(States states, std::vector<double> stepsMHz) {
        return average(coreChannel("PCPU", std::move(states)), std::move(stepsMHz));
    }
};

TEST(IOReportBridge, the_clock_is_the_mean_of_the_steps_by_the_time_spent_in_each) {
    Bridged b;
    EXPECT_THAT(b.average({{"IDLE", 100}, {"V0", 30}, {"V1", 10}}, {600, 1000}),
                Optional(DoubleEq(700.0)));
}

TEST(IOReportBridge, idle_and_off_are_no_clocks_in_any_mix_of_capitals) {
    Bridged b;
    for (const char* name : {"IDLE", "idle", "Idle", "iDLE", "OFF", "off", "Off"})
        EXPECT_THAT(b.average({{name, 1000}, {"V0", 1}}, {600}), Optional(DoubleEq(600.0))) << name;
}

TEST(IOReportBridge, any_other_name_takes_a_step_wherever_it_stands) {
    Bridged b;
    for (const char* name : {"DOWN", "", "IDLE ", "IDLER", "OFFLINE", "id{e", "o\xC3\xA9", "OF@"})
        EXPECT_THAT(b.average({{name, 1}, {"OFF", 9}, {"V1", 1}}, {600, 1000}),
                    Optional(DoubleEq(800.0)))
            << name;
}

TEST(IOReportBridge, states_beyond_the_steps_do_not_count_at_all) {
    Bridged b;
    EXPECT_THAT(
        b.average({{"a", 10}, {"b", 10}, {"c", 20}, {"d", 500}, {"e", 500}}, {600, 1000, 2000}),
        Optional(DoubleEq(1400.0)));
    EXPECT_EQ(b.average({{"a", 0}, {"b", 500}}, {600}), std::nullopt);
}

TEST(IOReportBridge, steps_beyond_the_states_are_never_reached) {
    Bridged b;
    EXPECT_THAT(b.average({{"a", 1}, {"b", 1}}, {600, 1000, 9999}), Optional(DoubleEq(800.0)));
}

TEST(IOReportBridge, a_core_that_never_ran_has_no_clock) {
    Bridged b;
    EXPECT_EQ(b.average({{"IDLE", 100}, {"V0", 0}, {"V1", 0}}, {600, 1000}), std::nullopt);
    EXPECT_EQ(b.average({{"V0", -5}, {"V1", 4}}, {600, 1000}), std::nullopt);
    EXPECT_EQ(b.average({{"IDLE", 100}}, {600}), std::nullopt);
    EXPECT_EQ(b.average(States{}, {600}), std::nullopt);
    EXPECT_EQ(b.average({{"V0", 5}}, {}), std::nullopt);
}

TEST(IOReportBridge, absurd_counts_and_residencies_end_without_harm) {
    Bridged b;
    SimulatedChannel channel = coreChannel("PCPU", {{"V0", 5}});
    for (const std::int32_t count : {0, -1, std::numeric_limits<std::int32_t>::min(),
                                     std::numeric_limits<std::int32_t>::max()}) {
        channel.stateCount = count;
        EXPECT_EQ(b.average(channel, {600}), std::nullopt) << count;
    }
    const auto most = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(b.average({{"V0", most}, {"V1", most}}, {600, 1000}), std::nullopt);
}

TEST(IOReportBridge, residencies_of_which_no_share_means_anything_make_no_clock) {
    Bridged b;
    EXPECT_EQ(b.average({{"V0", -5}, {"V1", 6}}, {600, 1000}), std::nullopt);
    EXPECT_EQ(b.average({{"V0", 6}, {"V1", -5}}, {600, 1000}), std::nullopt);
    // Their sum wraps to a small one.
    const auto most = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(b.average({{"V0", most}, {"V1", most}, {"V2", 12}}, {600, 1000, 1400}), std::nullopt);
    EXPECT_THAT(b.average({{"IDLE", -5}, {"V0", most}, {"V1", 0}}, {600, 1000}),
                Optional(DoubleEq(600.0)));
}

TEST(IOReportBridge, a_state_without_a_name_takes_a_step) {
    Bridged b;
    SimulatedChannel channel = coreChannel("PCPU", {{"V0", 1}, {"V1", 1}});
    channel.states[0].name.reset();
    EXPECT_THAT(b.average(channel, {600, 1000}), Optional(DoubleEq(800.0)));
}

TEST(IOReportBridge, each_core_of_a_cluster_that_ran_weighs_the_same) {
    Bridged b;
    const auto sample = b.sample({coreChannel("PCPU0", {{"IDLE", 5}, {"V0", 1}}),
                                  coreChannel("PCPU1", {{"V0", 0}, {"V1", 1'000'000}}),
                                  coreChannel("PCPU2", {{"IDLE", 5}, {"V0", 0}}),
                                  coreChannel("ECPU0", {{"V0", 1}, {"V1", 1}})});
    ASSERT_TRUE(sample);
    EXPECT_EQ(*sample, (ClusterClockSample{800.0, 600.0, b.bench.clock.now()}));
}

TEST(IOReportBridge, channels_belong_to_a_cluster_by_a_part_of_their_name) {
    Bridged b;
    const auto clocksOf = [&b](std::string name) {
        const auto sample = b.sample({coreChannel(std::move(name), {{"V0", 1}})});
        return sample ? std::pair(sample->pCoreMHz, sample->eCoreMHz)
                      : std::pair(std::optional<double>(), std::optional<double>());
    };
    const std::optional<double> none;
    EXPECT_EQ(clocksOf("DIE_1_PCPU0"), std::pair(std::optional(600.0), none));
    EXPECT_EQ(clocksOf("ECPU3"), std::pair(none, std::optional(400.0)));
    EXPECT_EQ(clocksOf("MCPU12"), std::pair(none, std::optional(400.0)));
    EXPECT_EQ(clocksOf("ECPU-PCPU"), std::pair(std::optional(600.0), none));
    EXPECT_EQ(clocksOf("pcpu0"), std::pair(none, none));
    EXPECT_EQ(clocksOf("GPU"), std::pair(none, none));
}

TEST(IOReportBridge, a_cluster_that_idled_is_absent_beside_the_other_one) {
    Bridged b;
    const auto sample = b.sample(
        {coreChannel("PCPU0", {{"IDLE", 9}, {"V0", 0}}), coreChannel("ECPU0", {{"V0", 1}})});
    ASSERT_TRUE(sample);
    EXPECT_EQ(sample->pCoreMHz, std::nullopt);
    EXPECT_EQ(sample->eCoreMHz, 400.0);
}

TEST(IOReportBridge, without_their_table_the_efficiency_cores_have_no_clock) {
    Bridged b;
    b.layout.eCoreFrequencyStepsMHz.clear();
    const auto sample =
        b.sample({coreChannel("PCPU0", {{"V0", 1}}), coreChannel("ECPU0", {{"V0", 1}})});
    ASSERT_TRUE(sample);
    EXPECT_EQ(sample->pCoreMHz, 600.0);
    EXPECT_EQ(sample->eCoreMHz, std::nullopt);
}

TEST(IOReportBridge, channels_of_other_groups_or_without_one_are_passed_over) {
    Bridged b;
    const auto runs = coreChannel("PCPU0", {{"V0", 1}});
    auto otherGroup = runs;
    otherGroup.group = "CPU Stats2";
    auto otherSubgroup = runs;
    otherSubgroup.subgroup = "CPU Complex Performance States";
    auto noGroup = runs;
    noGroup.group.reset();
    auto noSubgroup = runs;
    noSubgroup.subgroup.reset();
    auto noName = runs;
    noName.name.reset();
    auto noDictionary = runs;
    noDictionary.isDictionary = false;
    for (const auto& strange :
         {otherGroup, otherSubgroup, noGroup, noSubgroup, noName, noDictionary})
        EXPECT_EQ(b.sample({strange}), std::nullopt);
    EXPECT_TRUE(b.sample({noDictionary, otherGroup, runs}));
}

TEST(IOReportBridge, a_library_that_is_not_there_is_told) {
    TestBench bench;
    bench.failures.failAlways("dlopen:/usr/lib/libIOReport.dylib");
    EXPECT_FALSE(IOReportBridge::load(bench.platform.ioReport, bench.clock));
    EXPECT_EQ(
        bench.log.count(LogLevel::standard, "IOReportBridge", "libIOReport.dylib unavailable"), 1U);
}

TEST(IOReportBridge, opens_the_library_at_its_one_path_at_once_and_for_all) {
    TestBench bench;
    LibraryAt library(bench.platform.ioReport, "/usr/lib/libIOReport.dylib");
    EXPECT_TRUE(IOReportBridge::load(library, bench.clock));
    EXPECT_THAT(library.tried, ElementsAre(Pair("/usr/lib/libIOReport.dylib", 10)));
}

class MissingSymbol : public testing::TestWithParam<std::pair<const char*, std::size_t>> {};

TEST_P(MissingSymbol, is_told_by_name_and_ends_the_search) {
    const auto [symbol, place] = GetParam();
    TestBench bench;
    bench.failures.failAlways(std::string("dlsym:") + symbol);
    EXPECT_FALSE(IOReportBridge::load(bench.platform.ioReport, bench.clock));
    EXPECT_TRUE(bench.log.contains(LogLevel::standard, "IOReportBridge",
                                   std::string("Missing IOReport symbol: ") + symbol));
    EXPECT_EQ(bench.platform.totalCalls(), 1 + place);  // the opening, and the symbols up to it
}

INSTANTIATE_TEST_SUITE_P(inOrder, MissingSymbol,
                         testing::Values(std::pair("IOReportCopyChannelsInGroup", 1),
                                         std::pair("IOReportCreateSubscription", 2),
                                         std::pair("IOReportCreateSamples", 3),
                                         std::pair("IOReportCreateSamplesDelta", 4),
                                         std::pair("IOReportChannelGetGroup", 5),
                                         std::pair("IOReportChannelGetSubGroup", 6),
                                         std::pair("IOReportChannelGetChannelName", 7),
                                         std::pair("IOReportStateGetCount", 8),
                                         std::pair("IOReportStateGetNameForIndex", 9),
                                         std::pair("IOReportStateGetResidency", 10)));

TEST(IOReportBridge, the_shared_one_is_loaded_once_and_stays_absent_where_that_failed) {
    TestBench bench;
    bench.failures.failNext("dlopen:/usr/lib/libIOReport.dylib");
    EXPECT_EQ(IOReportBridge::shared(), nullptr);
    EXPECT_EQ(IOReportBridge::shared(), nullptr);
    EXPECT_EQ(bench.platform.calls("dlopen:/usr/lib/libIOReport.dylib"), 1U);
    TestBench other;
    EXPECT_NE(IOReportBridge::shared(), nullptr);
    EXPECT_EQ(IOReportBridge::shared(), IOReportBridge::shared());
}

TEST(IOReportBridge, a_subscription_that_is_refused_is_absent_and_leaves_nothing_held) {
    for (const auto operation :
         {operations::ioReportCopyChannels, operations::cfDictionaryCreateMutableCopy,
          operations::ioReportCreateSubscription, operations::ioReportCreateSubscriptionNoObject,
          operations::ioReportCreateSubscriptionNoChannels}) {
        Bridged b;
        b.bench.failures.failNext(operation);
        EXPECT_FALSE(b.bridge->makeCPUFrequencySubscription()) << operation;
        EXPECT_FALSE(b.bench.failures.hasUnused()) << operation;
        EXPECT_EQ(b.bench.platform.outstanding(), 0U) << operation;
        EXPECT_TRUE(b.bridge->makeCPUFrequencySubscription()) << operation;
        EXPECT_EQ(b.bench.platform.outstanding(), 0U) << operation;
    }
}

TEST(IOReportBridge, only_the_states_of_the_cores_are_subscribed) {
    Bridged b;
    const auto subscription = b.bridge->makeCPUFrequencySubscription();
    ASSERT_TRUE(subscription);
    EXPECT_EQ(b.bridge->library().channelCount(*subscription->channels), 12U);
}

}  // namespace
}  // namespace vtx
