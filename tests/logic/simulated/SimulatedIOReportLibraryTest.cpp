// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedIOReportLibrary.h"

#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

constexpr const char* path = "/usr/lib/libIOReport.dylib";

SimulatedChannel channelOf(std::string group, std::string name) {
    return {.group = std::move(group),
            .subgroup = "Sub",
            .name = std::move(name),
            .states = {{"IDLE", 10}, {"V0", 20}},
            .stateCount = {},
            .unit = "24Mticks"};
}

class SimulatedIOReportLibraryTest : public testing::Test {
protected:
    SimulatedIOReportLibraryTest() {
        channels.script({channelOf("A", "one"), channelOf("B", "two")});
    }

    SimulatedChannels channels;
    Instruments instruments;
    SimulatedIOReportLibrary port{channels, instruments};
    std::unique_ptr<IOReport> library = port.open(path, 10);
};

TEST_F(SimulatedIOReportLibraryTest, is_there_under_its_one_path) {
    EXPECT_TRUE(library);
    EXPECT_FALSE(port.open("/usr/lib/libOther.dylib", 10));
}

TEST_F(SimulatedIOReportLibraryTest, copies_the_channels_of_a_group_and_subgroup) {
    const auto copied = library->copyChannelsInGroup("A", "Sub");
    ASSERT_TRUE(copied);
    EXPECT_EQ(library->channelCount(*copied), 1U);
    EXPECT_EQ(library->channelName(*library->channel(*copied, 0)), "one");
    EXPECT_EQ(library->channelUnitLabel(*library->channel(*copied, 0)), "24Mticks");
    EXPECT_FALSE(library->copyChannelsInGroup("A", "Other"));
    EXPECT_TRUE(library->copyChannelsInGroup("A", std::nullopt));
}

TEST_F(SimulatedIOReportLibraryTest, a_difference_holds_what_was_added_to_the_subscribed_channels) {
    const auto wanted = library->copyChannelsInGroup("A", "Sub");
    const auto subscribed = library->createSubscription(*wanted);
    const auto take = [&] {
        return library->createSamples(*subscribed.subscription, *subscribed.channels);
    };
    const auto older = take();
    channels.addResidency("one", 1, 5);
    const auto delta = library->createSamplesDelta(*older, *take());
    ASSERT_EQ(library->channelCount(*delta), 1U);
    const auto channel = *library->channel(*delta, 0);
    EXPECT_EQ(library->stateCount(channel), 2);
    EXPECT_EQ(library->stateName(channel, 1), "V0");
    EXPECT_EQ(library->stateResidency(channel, 0), 0);
    EXPECT_EQ(library->stateResidency(channel, 1), 5);
}

TEST_F(SimulatedIOReportLibraryTest, only_the_channels_that_a_subscription_gave_can_be_sampled) {
    const auto wanted = library->copyChannelsInGroup("A", "Sub");
    const auto subscribed = library->createSubscription(*wanted);
    EXPECT_FALSE(library->createSamples(*subscribed.subscription, *wanted));
    const auto copy = library->createMutableCopy(*subscribed.channels);
    EXPECT_FALSE(library->createSamples(*subscribed.subscription, *copy));
    EXPECT_TRUE(library->createSamples(*subscribed.subscription, *subscribed.channels));
}

TEST_F(SimulatedIOReportLibraryTest, all_that_it_hands_out_is_given_back) {
    {
        const auto wanted = library->copyChannelsInGroup("A", "Sub");
        const auto copy = library->createMutableCopy(*wanted);
        const auto subscribed = library->createSubscription(*copy);
        EXPECT_EQ(instruments.handles.outstanding(handles::ioReportDictionary), 3U);
        EXPECT_EQ(instruments.handles.outstanding(handles::ioReportSubscription), 1U);
    }
    EXPECT_EQ(instruments.handles.outstanding(), 0U);
}

}  // namespace
}  // namespace vtx
