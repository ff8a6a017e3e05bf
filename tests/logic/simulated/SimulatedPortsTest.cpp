// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <string>

#include "platform/simulated/ManualClock.h"
#include "platform/simulated/Operations.h"
#include "platform/simulated/SimulatedPlatform.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

struct Bench {
    explicit Bench(MacShape shape = MacShape::standard()) : platform(clock, std::move(shape)) {}
    ManualClock clock;
    SimulatedPlatform platform;

    std::optional<std::int32_t> int32(std::string_view name) {
        std::int32_t value = 0;
        std::size_t size = 0;
        const auto bytes = std::as_writable_bytes(std::span(&value, 1));
        if (platform.sysctl.sysctlbyname(name, bytes, size) != 0) return std::nullopt;
        EXPECT_EQ(size, sizeof value);
        return value;
    }
};

TEST(SimulatedSysctl, two_clusters_show_as_two_performance_levels) {
    Bench bench;
    EXPECT_EQ(bench.int32("hw.nperflevels"), 2);
    EXPECT_EQ(bench.int32("hw.perflevel0.logicalcpu"), 8);
    EXPECT_EQ(bench.int32("hw.perflevel1.logicalcpu"), 4);
    EXPECT_EQ(bench.int32("hw.logicalcpu"), 12);
}

TEST(SimulatedSysctl, a_single_level_has_no_second_one) {
    Bench bench(MacShape::singleLevel(8));
    EXPECT_EQ(bench.int32("hw.nperflevels"), 1);
    EXPECT_EQ(bench.int32("hw.perflevel0.logicalcpu"), 8);
    EXPECT_FALSE(bench.int32("hw.perflevel1.logicalcpu"));
}

TEST(SimulatedSysctl, a_kernel_without_levels_knows_the_processors_alone) {
    Bench bench(MacShape::withoutLevels(6));
    EXPECT_FALSE(bench.int32("hw.nperflevels"));
    EXPECT_FALSE(bench.int32("hw.perflevel0.logicalcpu"));
    EXPECT_EQ(bench.int32("hw.logicalcpu"), 6);
}

TEST(SimulatedSysctl, top_clocks_are_there_where_the_shape_gives_them) {
    MacShape shape = MacShape::standard();
    shape.performanceMaxHz = 4'000'000'000;
    Bench bench(std::move(shape));
    std::int64_t value = 0;
    std::size_t size = 0;
    const auto bytes = std::as_writable_bytes(std::span(&value, 1));
    auto& sysctl = bench.platform.sysctl;
    EXPECT_EQ(sysctl.sysctlbyname("hw.perflevel0.cpufrequency_max", bytes, size), 0);
    EXPECT_EQ(value, 4'000'000'000);
    EXPECT_EQ(sysctl.sysctlbyname("hw.perflevel1.cpufrequency_max", bytes, size), ENOENT);
    EXPECT_FALSE(bench.int32("hw.perflevel0.cpufrequency_max")) << "does not fit 4 bytes";
}

TEST(SimulatedSysctl, texts_are_sized_first_and_end_with_a_zero_byte) {
    Bench bench;
    auto& sysctl = bench.platform.sysctl;
    sysctl.set("hw.model", "Mac16,1");
    std::size_t size = 0;
    ASSERT_EQ(sysctl.sysctlbyname("hw.model", {}, size), 0);
    EXPECT_EQ(size, 8u);
    std::string text(size, 'x');
    ASSERT_EQ(sysctl.sysctlbyname("hw.model", std::as_writable_bytes(std::span(text)), size), 0);
    EXPECT_EQ(text, std::string("Mac16,1\0", 8));
    text.resize(3);
    EXPECT_EQ(sysctl.sysctlbyname("hw.model", std::as_writable_bytes(std::span(text)), size),
              ENOMEM);
}

TEST(SimulatedSysctl, what_was_set_or_removed_wins_over_what_follows_from_the_shape) {
    Bench bench;
    bench.platform.sysctl.set("hw.nperflevels", std::int32_t{3});
    bench.platform.sysctl.remove("hw.logicalcpu");
    EXPECT_EQ(bench.int32("hw.nperflevels"), 3);
    EXPECT_FALSE(bench.int32("hw.logicalcpu"));
}

TEST(SimulatedSysctl, a_single_name_fails_as_often_as_asked) {
    Bench bench;
    bench.platform.failures.failNext("sysctlbyname:hw.nperflevels", 2, EPERM);
    std::size_t size = 0;
    EXPECT_EQ(bench.platform.sysctl.sysctlbyname("hw.nperflevels", {}, size), EPERM);
    EXPECT_EQ(bench.int32("hw.logicalcpu"), 12);
    EXPECT_FALSE(bench.int32("hw.nperflevels"));
    EXPECT_EQ(bench.int32("hw.nperflevels"), 2);
    EXPECT_EQ(bench.platform.calls("sysctlbyname:hw.nperflevels"), 3u);
}

TEST(SimulatedHostInfo, the_words_are_four_counters_for_each_processor_in_order) {
    Bench bench(MacShape::standard(1, 1));
    bench.platform.mac.processors.setLoad(1, {.user = 0.4, .system = 0.3, .nice = 0.1});
    bench.clock.advanceBy(1s);
    const auto info = bench.platform.hostInfo.processorLoadInfo();
    EXPECT_EQ(info.result, kernSuccess);
    EXPECT_EQ(info.processorCount, 2u);
    const std::vector<std::uint32_t> words(info.words.words().begin(), info.words.words().end());
    EXPECT_EQ(words, (std::vector<std::uint32_t>{0, 0, 100, 0, 40, 30, 20, 10}));
}

TEST(SimulatedHostInfo, an_array_is_outstanding_until_it_is_given_back) {
    Bench bench;
    {
        auto info = bench.platform.hostInfo.processorLoadInfo();
        EXPECT_EQ(bench.platform.instruments.handles.outstanding(handles::kernelArray), 1u);
        const KernelArray moved = std::move(info.words);
        EXPECT_EQ(bench.platform.outstanding(), 1u);
        EXPECT_EQ(bench.platform.calls("vm_deallocate"), 0u);
    }
    EXPECT_EQ(bench.platform.outstanding(), 0u);
    EXPECT_EQ(bench.platform.calls("vm_deallocate"), 1u);
}

TEST(SimulatedHostInfo, every_way_to_fail_can_be_made_to_happen) {
    Bench bench(MacShape::standard(2, 2));
    auto& failures = bench.platform.failures;
    auto& hostInfo = bench.platform.hostInfo;

    failures.failNext(operations::hostProcessorInfo);
    const auto failed = hostInfo.processorLoadInfo();
    EXPECT_EQ(failed.result, kernFailure);
    EXPECT_TRUE(failed.words.isNull());

    failures.failNext(operations::hostProcessorInfoNull);
    const auto null = hostInfo.processorLoadInfo();
    EXPECT_EQ(null.result, kernSuccess);
    EXPECT_TRUE(null.words.isNull());

    failures.failNext(operations::hostProcessorInfoFewEntries);
    EXPECT_EQ(hostInfo.processorLoadInfo().words.words().size(), 15u);

    failures.failNext(operations::hostProcessorInfoSurplusEntries);
    EXPECT_EQ(hostInfo.processorLoadInfo().words.words().size(), 20u);

    failures.failNext(operations::hostProcessorInfoZeroProcessors);
    const auto zero = hostInfo.processorLoadInfo();
    EXPECT_EQ(zero.processorCount, 0u);
    EXPECT_FALSE(zero.words.isNull());

    EXPECT_FALSE(failures.hasUnused());
    EXPECT_EQ(hostInfo.processorLoadInfo().words.words().size(), 16u);
}

TEST(Failures, a_failure_may_come_after_calls_that_succeed) {
    Failures failures;
    failures.failAfter("read", 2, 1, 9);
    EXPECT_FALSE(failures.take("read"));
    EXPECT_FALSE(failures.take("read"));
    EXPECT_TRUE(failures.hasUnused());
    EXPECT_EQ(failures.take("read"), 9);
    EXPECT_FALSE(failures.take("read"));
    EXPECT_FALSE(failures.hasUnused());
}

TEST(Failures, one_that_always_happens_does_until_it_is_healed) {
    Failures failures;
    failures.failAlways("write", 7);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(failures.take("write"), 7);
    failures.heal("write");
    EXPECT_FALSE(failures.take("write"));
}

TEST(CallCounter, it_counts_each_operation_and_starts_again) {
    CallCounter counter;
    counter.count("a");
    counter.count("b");
    counter.count("a");
    EXPECT_EQ(counter.calls("a"), 2u);
    EXPECT_EQ(counter.calls("c"), 0u);
    EXPECT_EQ(counter.totalCalls(), 3u);
    counter.resetCalls();
    EXPECT_EQ(counter.totalCalls(), 0u);
}

TEST(OutstandingHandles, giving_back_what_is_not_out_is_a_mistake_of_the_caller) {
    OutstandingHandles all;
    EXPECT_DEATH(all.remove("Thing"), "released twice: Thing");
}

TEST(SimulatedPowerSources, the_type_is_that_of_the_moment_of_the_copy) {
    Bench bench;
    const auto mains = bench.platform.powerSources.copyPowerSourcesInfo();
    bench.platform.mac.setPower(SimulatedPower::battery);
    const auto battery = bench.platform.powerSources.copyPowerSourcesInfo();
    bench.platform.mac.setPower(SimulatedPower::unknown);
    const auto unknown = bench.platform.powerSources.copyPowerSourcesInfo();
    EXPECT_EQ(mains->providingPowerSourceType(), "AC Power");
    EXPECT_EQ(battery->providingPowerSourceType(), "Battery Power");
    EXPECT_FALSE(unknown->providingPowerSourceType());
    EXPECT_EQ(bench.platform.instruments.handles.outstanding(handles::powerSourcesInfo), 3u);
}

TEST(SimulatedPowerSources, the_snapshot_and_its_type_can_be_missing) {
    Bench bench;
    bench.platform.failures.failNext(operations::powerSourcesNull);
    EXPECT_EQ(bench.platform.powerSources.copyPowerSourcesInfo(), nullptr);
    bench.platform.failures.failNext(operations::powerSourcesType);
    EXPECT_FALSE(bench.platform.powerSources.copyPowerSourcesInfo()->providingPowerSourceType());
    EXPECT_EQ(bench.platform.outstanding(), 0u);
}

TEST(SimulatedProcessInfo, switching_the_low_power_mode_tells_once) {
    Bench bench;
    int told = 0;
    const auto token = bench.platform.processInfo.onPowerStateDidChange([&] { ++told; });
    bench.platform.mac.setLowPowerMode(true);
    bench.platform.mac.setLowPowerMode(true);
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(bench.platform.processInfo.isLowPowerModeEnabled());
}

TEST(SimulatedProcessInfo, an_activity_goes_on_until_it_is_ended) {
    Bench bench;
    auto& info = bench.platform.processInfo;
    const ActivityToken token = info.beginActivity(0xff, "sampling");
    EXPECT_NE(token, 0u);
    EXPECT_EQ(info.activities(), (std::vector<SimulatedProcessInfo::Activity>{{0xff, "sampling"}}));
    EXPECT_EQ(bench.platform.outstanding(), 1u);
    info.endActivity(token);
    EXPECT_TRUE(info.activities().empty());
    EXPECT_EQ(bench.platform.outstanding(), 0u);
}

TEST(SimulatedProcessInfo, the_environment_is_the_simulated_one) {
    Bench bench;
    EXPECT_FALSE(bench.platform.processInfo.environment("PATH"));
    bench.platform.mac.environment["NAME"] = "value";
    EXPECT_EQ(bench.platform.processInfo.environment("NAME"), "value");
}

TEST(SimulatedWorkspace, sleep_and_wake_are_told_once_each_and_subscriptions_are_counted) {
    Bench bench;
    std::string told;
    {
        const auto sleep = bench.platform.workspace.onWillSleep([&] { told += "s"; });
        const auto wake = bench.platform.workspace.onDidWake([&] { told += "w"; });
        EXPECT_EQ(bench.platform.outstanding(), 2u);
        bench.platform.mac.wake();
        bench.platform.mac.sleep();
        bench.platform.mac.sleep();
        bench.platform.mac.wake();
    }
    bench.platform.mac.sleep();
    EXPECT_EQ(told, "sw");
    EXPECT_EQ(bench.platform.outstanding(), 0u);
}

TEST(SimulatedUnifiedLog, old_lines_go_when_there_are_too_many) {
    SimulatedUnifiedLog log;
    for (std::size_t i = 0; i < SimulatedUnifiedLog::capacity + 1; ++i)
        log.write(LogLevel::info, "s", "c", std::to_string(i));
    EXPECT_EQ(log.lines().size(), SimulatedUnifiedLog::capacity);
    EXPECT_EQ(log.lines().front().message, "1");
}

TEST(SimulatedUnifiedLog, lines_can_be_asked_for_by_category_and_cleared) {
    SimulatedUnifiedLog log;
    log.write(LogLevel::info, "s", "A", "one");
    log.write(LogLevel::error, "s", "B", "two");
    EXPECT_EQ(log.lines("B").size(), 1u);
    EXPECT_EQ(log.count(LogLevel::error, "B", "two"), 1u);
    EXPECT_FALSE(log.contains(LogLevel::error, "A", "one"));
    EXPECT_TRUE(log.contains("wo"));
    log.clear();
    EXPECT_TRUE(log.lines().empty());
}

TEST(SimulatedUnifiedLog, it_shows_lines_on_standard_error_when_asked_to) {
    SimulatedUnifiedLog log;
    log.setEcho(true);
    testing::internal::CaptureStderr();
    log.write(LogLevel::standard, "sub", "Cat", "hello");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "default [sub:Cat] hello\n");
}

TEST(SimulatedPlatform, the_ports_are_those_of_one_machine) {
    Bench bench;
    const Ports ports = bench.platform.ports();
    EXPECT_EQ(&ports.clock, &bench.clock);
    EXPECT_EQ(&ports.sysctl, &bench.platform.sysctl);
    EXPECT_EQ(&ports.unifiedLog, &bench.platform.unifiedLog);
    bench.platform.mac.preferredLanguages = {"de-DE", "en"};
    EXPECT_EQ(ports.locale.preferredLanguages(), (std::vector<std::string>{"de-DE", "en"}));
}

}  // namespace
}  // namespace vtx
