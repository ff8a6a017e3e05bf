// SPDX-License-Identifier: MIT
// The ports on the machine that runs the tests: each figure within its range.
#include <gtest/gtest.h>
#include <unistd.h>

#include <pthread.h>
#include <algorithm>
#include <fstream>
#include <numeric>
#include <thread>

#include "linux/TemporaryTree.h"
#include "memory/MemoryMonitorEngine.h"
#include "platform/HostInfo.h"
#include "platform/IORegistry.h"
#include "platform/IOReportLibrary.h"
#include "platform/Locale.h"
#include "platform/PowerSources.h"
#include "platform/ProcessInfo.h"
#include "platform/Sysctl.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/PollRunLoop.h"
#include "platform/linux/PressureText.h"
#include "platform/linux/PressureTriggers.h"
#include "telemetry/PMGRReader.h"

namespace vtx::test {
namespace {

struct RunningMachine : testing::Test {
    [[nodiscard]] std::int32_t int32(std::string_view name) {
        std::int32_t value = -1;
        std::size_t size = 0;
        const auto into = std::as_writable_bytes(std::span(&value, 1));
        return ports.sysctl.sysctlbyname(name, into, size) == 0 ? value : -1;
    }
    [[nodiscard]] std::uint64_t tickSum() {
        const auto info = ports.hostInfo.processorLoadInfo();
        const auto words = info.words.words();
        return std::accumulate(words.begin(), words.end(), std::uint64_t{0});
    }

    TemporaryTree folder;
    PollRunLoop loop;
    LinuxPlatform platform{loop,
                           loop.executor(),
                           {.root = "/",
                            .configFolder = folder.path(),
                            .busAddress = "unix:path=" + folder.path() + "/no-bus",
                            .environment = processEnvironment()}};
    Ports ports = platform.ports();
};

TEST_F(RunningMachine, has_as_many_processors_as_the_system_library_counts) {
    const auto online = ::sysconf(_SC_NPROCESSORS_ONLN);
    EXPECT_GE(int32("hw.logicalcpu"), online);
    EXPECT_LE(int32("hw.logicalcpu"), ::sysconf(_SC_NPROCESSORS_CONF));
    const auto info = ports.hostInfo.processorLoadInfo();
    ASSERT_EQ(info.result, kernSuccess);
    EXPECT_EQ(static_cast<std::int32_t>(info.processorCount), int32("hw.logicalcpu"));
    EXPECT_EQ(info.words.words().size(), std::size_t{info.processorCount} * 4);
}

TEST_F(RunningMachine, has_clock_steps_that_ascend_and_a_library_that_counts_them) {
    const auto tables = PMGRReader::detectFrequencyTables(ports.ioRegistry);
    const auto library = ports.ioReport.open("/usr/lib/libIOReport.dylib", 10);
    if (!tables) {
        EXPECT_FALSE(library);
        GTEST_SKIP() << "this machine has no cpufreq";
    }
    for (const auto* steps : {&tables->performanceStepsMHz, &tables->efficiencyStepsMHz}) {
        EXPECT_TRUE(std::ranges::is_sorted(*steps));
        for (const double mhz : *steps) EXPECT_TRUE(mhz >= 1.0 && mhz < 100'000.0) << mhz;
    }
}

TEST_F(RunningMachine, has_graphics_with_a_load_within_its_range) {
    const auto walk = ports.ioRegistry.getMatchingServices({"IOAccelerator"});
    EXPECT_EQ(walk.result, kernSuccess);
    if (!walk.iterator) GTEST_SKIP() << "this machine has no graphics that tell a load";
    while (const auto entry = ports.ioRegistry.iteratorNext(walk.iterator)) {
        const auto load = ports.ioRegistry.entryProperties(entry)
                              .properties["PerformanceStatistics"]["Device Utilization %"]
                              .number();
        EXPECT_TRUE(!load || (*load >= 0 && *load <= 100)) << *load;
    }
}

TEST_F(RunningMachine, has_levels_that_add_up_to_its_processors) {
    std::int32_t sum = int32("hw.perflevel0.logicalcpu");
    if (int32("hw.nperflevels") == 2) sum += int32("hw.perflevel1.logicalcpu");
    EXPECT_EQ(sum, int32("hw.logicalcpu"));
}

TEST_F(RunningMachine, counts_ticks_while_it_runs) {
    const std::uint64_t first = tickSum();
    ASSERT_GT(first, 0u);
    // Reading takes processor time itself, so that a few thousand reads last longer than a tick.
    int reads = 0;
    while (tickSum() <= first && reads < 1'000'000) ++reads;
    EXPECT_LT(reads, 1'000'000);
}

TEST_F(RunningMachine, uses_the_memory_that_the_kernel_does_not_call_available) {
    MemoryMonitorEngine engine(ports);
    EXPECT_EQ(engine.pageSize(), static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)));
    const auto kilobytes = [](const char* key) {
        std::ifstream in("/proc/meminfo");
        std::string word;
        while (in >> word && word != key) in.ignore(1000, '\n');
        std::uint64_t amount = 0;
        in >> amount;
        return amount;
    };
    // Memory moves between two readings: one of some must lie between those around it.
    bool isBetween = false;
    for (int attempt = 0; attempt < 1000 && !isBetween; ++attempt) {
        const auto before = kilobytes("MemAvailable:");
        const auto stats = engine.sample(MemoryStats::Pressure::normal);
        const auto after = kilobytes("MemAvailable:");
        ASSERT_TRUE(stats);
        const auto available = (stats->totalBytes - stats->usedBytes) / 1024;
        EXPECT_EQ(stats->totalBytes, kilobytes("MemTotal:") * 1024);
        EXPECT_EQ(stats->freeBytes + stats->inactiveBytes, available * 1024);
        EXPECT_LE(stats->swapUsedBytes, stats->swapTotalBytes);
        isBetween = std::min(before, after) <= available && available <= std::max(before, after);
    }
    EXPECT_TRUE(isBetween);
}

TEST_F(RunningMachine, takes_triggers_of_memory_pressure_or_tells_averages) {
    const LinuxRoot root("/");
    const bool hasPressure = root.exists("/proc/pressure/memory");
    const bool taken = static_cast<bool>(KernelPressureTriggers(root).open("some 150000 2000000"));
    if (!hasPressure) {
        EXPECT_FALSE(taken);
        GTEST_SKIP() << "this machine does not account for stalls";
    }
    EXPECT_TRUE(parseMemoryPressure(root.read("/proc/pressure/memory").value_or("")));
    if (!taken) GTEST_SKIP() << "this machine takes no triggers";
    EXPECT_FALSE(KernelPressureTriggers(root).open("some 150000 nonsense"));
}

TEST_F(RunningMachine, answers_for_every_other_port) {
    EXPECT_NE(ports.processInfo.operatingSystemVersionString(), "");
    EXPECT_FALSE(ports.processInfo.isLowPowerModeEnabled());
    EXPECT_TRUE(ports.powerSources.copyPowerSourcesInfo()->providingPowerSourceType());
    const auto sleep = ports.workspace.onWillSleep([] {});
    ports.userDefaults.setData("key", toData("value"));
    EXPECT_EQ(ports.userDefaults.data("key"), toData("value"));
    for (const auto& tag : ports.locale.preferredLanguages()) EXPECT_GE(tag.size(), 2u);
    loop.runReady();
}

TEST(LinuxPlatform, threads_carry_the_first_fifteen_bytes_of_their_name) {
    std::string name(16, '\0');
    std::thread thread([&] {
        LinuxPlatform::nameThread("vantrix-telemetry")();
        ::pthread_getname_np(::pthread_self(), name.data(), name.size());
    });
    thread.join();
    EXPECT_STREQ(name.c_str(), "vantrix-telemet");
}

}  // namespace
}  // namespace vtx::test
