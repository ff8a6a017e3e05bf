// SPDX-License-Identifier: MIT
#include "telemetry/ANEMonitor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "support/LibraryAt.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::Pair;

constexpr auto firstPath = "dlopen:/usr/lib/libIOReport.dylib";
constexpr auto secondPath = "dlopen:/System/Library/PrivateFrameworks/IOReport.framework/IOReport";

TEST(ANEMonitor, holds_an_idle_subscription_and_an_empty_reading) {
    TestBench bench;
    const ANEMonitor monitor(bench.ports());
    EXPECT_TRUE(monitor.energyReader());
    EXPECT_FALSE(ANEMonitor::isAvailable);
    EXPECT_TRUE(monitor.registryStatsAvailable());
    EXPECT_EQ(monitor.latest->utilization, std::nullopt);
    EXPECT_EQ(monitor.latest->watts, std::nullopt);
    EXPECT_EQ(monitor.latest->activeJobs, std::nullopt);
    EXPECT_EQ(bench.platform.calls(operations::ioReportCreateSamples), 0U);
}

TEST(ANEMonitor, says_on_every_machine_once_that_it_is_parked) {
    for (const bool hasLibrary : {true, false}) {
        TestBench bench;
        if (!hasLibrary) bench.failures.failAlways(firstPath);
        const ANEMonitor monitor(bench.ports());
        EXPECT_EQ(monitor.energyReader() != nullptr, hasLibrary);
        EXPECT_EQ(*monitor.latest, ANEReading::empty());
        EXPECT_EQ(bench.log.count(LogLevel::standard, "ANEMonitor",
                                  "Not Apple Silicon — ANE monitoring disabled"),
                  1U);
        EXPECT_EQ(bench.log.lines().size(), 1U);
    }
}

TEST(ANEMonitor, the_empty_reading_is_one_and_as_old_as_its_first_use) {
    TestBench bench;
    bench.clock.advanceBy(seconds(5));
    const Date firstUse = bench.clock.now();
    const ANEReading& first = ANEReading::empty();
    bench.clock.advanceBy(seconds(5));
    EXPECT_EQ(&ANEReading::empty(), &first);
    EXPECT_EQ(first.timestamp, firstUse);
}

TEST(IOReportEnergyReader, tries_the_framework_where_the_library_is_not_there) {
    TestBench bench;
    bench.failures.failAlways(firstPath);
    EXPECT_FALSE(IOReportEnergyReader::make(bench.platform.ioReport));
    EXPECT_EQ(bench.platform.calls(firstPath), 1U);
    EXPECT_EQ(bench.platform.calls(secondPath), 1U);
}

TEST(IOReportEnergyReader, takes_the_framework_and_resolves_either_lazily) {
    TestBench bench;
    constexpr auto library = "/usr/lib/libIOReport.dylib";
    constexpr auto framework = "/System/Library/PrivateFrameworks/IOReport.framework/IOReport";
    LibraryAt inFramework(bench.platform.ioReport, framework);
    EXPECT_TRUE(IOReportEnergyReader::make(inFramework));
    EXPECT_THAT(inFramework.tried, ElementsAre(Pair(library, 1), Pair(framework, 1)));
    LibraryAt inPlace(bench.platform.ioReport, library);
    EXPECT_TRUE(IOReportEnergyReader::make(inPlace));
    EXPECT_THAT(inPlace.tried, ElementsAre(Pair(library, 1)));
}

TEST(IOReportEnergyReader, subscribes_to_the_channels_themselves_after_its_symbols_in_order) {
    const char* symbols[] = {"IOReportCopyChannelsInGroup",   "IOReportCreateSubscription",
                             "IOReportCreateSamples",         "IOReportCreateSamplesDelta",
                             "IOReportChannelGetChannelName", "IOReportChannelGetUnitLabel",
                             "IOReportSimpleGetIntegerValue"};
    std::size_t place = 0;
    for (const char* symbol : symbols) {
        TestBench bench;
        bench.failures.failNext(std::string("dlsym:") + symbol);
        EXPECT_FALSE(IOReportEnergyReader::make(bench.platform.ioReport));
        EXPECT_EQ(bench.platform.totalCalls(), 1 + ++place) << symbol;  // the opening first
    }
    TestBench bench;
    EXPECT_TRUE(IOReportEnergyReader::make(bench.platform.ioReport));
    EXPECT_EQ(bench.platform.calls(operations::cfDictionaryCreateMutableCopy), 0U);
}

class EnergyReaderFailure : public testing::TestWithParam<std::string_view> {};

TEST_P(EnergyReaderFailure, leaves_no_reader_in_silence_and_nothing_held) {
    TestBench bench;
    bench.failures.failNext(GetParam());
    EXPECT_FALSE(IOReportEnergyReader::make(bench.platform.ioReport));
    EXPECT_FALSE(bench.failures.hasUnused());
    EXPECT_EQ(bench.platform.outstanding(), 0U);
    EXPECT_TRUE(bench.log.lines().empty());
}

INSTANTIATE_TEST_SUITE_P(
    steps, EnergyReaderFailure,
    testing::Values("dlsym:IOReportCopyChannelsInGroup", "dlsym:IOReportCreateSubscription",
                    "dlsym:IOReportCreateSamples", "dlsym:IOReportCreateSamplesDelta",
                    "dlsym:IOReportChannelGetChannelName", "dlsym:IOReportChannelGetUnitLabel",
                    "dlsym:IOReportSimpleGetIntegerValue", operations::ioReportCopyChannels,
                    operations::ioReportCreateSubscription,
                    operations::ioReportCreateSubscriptionNoObject,
                    operations::ioReportCreateSubscriptionNoChannels));

TEST(IOReportEnergyReader, gives_all_back_when_it_goes) {
    TestBench bench;
    auto reader = IOReportEnergyReader::make(bench.platform.ioReport);
    const auto& handles = bench.platform.instruments.handles;
    EXPECT_EQ(handles.outstanding(handles::ioReportSubscription), 1U);
    EXPECT_EQ(handles.outstanding(handles::ioReportDictionary), 1U);
    reader.reset();
    EXPECT_EQ(bench.platform.outstanding(), 0U);
}

}  // namespace
}  // namespace vtx
