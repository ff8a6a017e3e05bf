// SPDX-License-Identifier: MIT
// The ports on the machine that runs the tests: each figure within its range.
#include <fcntl.h>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <pthread.h>
#include <algorithm>
#include <filesystem>
#include <numeric>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "linux/TemporaryTree.h"
#include "platform/HostInfo.h"
#include "platform/IORegistry.h"
#include "platform/IOReportLibrary.h"
#include "platform/Locale.h"
#include "platform/PowerSources.h"
#include "platform/ProcessInfo.h"
#include "platform/Sysctl.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "platform/linux/BlockDevices.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/PollRunLoop.h"
#include "telemetry/DiskIOMonitor.h"
#include "telemetry/NetworkMonitor.h"
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

// The whole disk behind a folder's device, or nothing: behind some folders there is none.
std::optional<std::string> wholeDiskBehind(const std::string& folder) {
    struct stat facts{};
    if (::stat(folder.c_str(), &facts) != 0) return std::nullopt;
    std::error_code error;
    auto device = std::filesystem::canonical(
        fmt::format("/sys/dev/block/{}:{}", major(facts.st_dev), minor(facts.st_dev)), error);
    if (error) return std::nullopt;
    if (std::filesystem::exists(device / "partition")) device = device.parent_path();
    const std::string name = device.filename().string();
    return isWholeDisk(name) ? std::optional(name) : std::nullopt;
}

// Writes so many bytes into the file and waits until they are on its disk.
bool writeThrough(const std::string& file, std::size_t bytes) {
    const FileDescriptor out(::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    std::vector<char> block(bytes);
    // Not all alike, so that no file system makes a hole or less of it.
    std::minstd_rand random(1);
    for (auto& byte : block) byte = static_cast<char>(random());
    return out && ::write(out.get(), block.data(), block.size()) == static_cast<ssize_t>(bytes) &&
           ::fdatasync(out.get()) == 0;
}

TEST_F(RunningMachine, counts_what_is_written_on_the_disk_that_it_is_written_to) {
    constexpr std::size_t bytes = 4 << 20;
    const auto disk = wholeDiskBehind(folder.path());
    if (!disk) GTEST_SKIP() << "there is no whole disk behind the folder for temporary files";
    DiskIOMonitor monitor(ports.ioRegistry, ports.clock);
    const auto written = [&]() -> std::optional<std::uint64_t> {
        monitor.refresh();
        for (const auto& volume : (*monitor.latest)->volumes)
            if (volume.bsdDevice == *disk) return volume.bytesWritten;
        return std::nullopt;
    };
    const auto first = written();
    const auto before = written();
    ASSERT_TRUE(first && before) << *disk << " is not in the list";
    ASSERT_TRUE(writeThrough(folder.path() + "/written", bytes));
    const auto after = written();
    ASSERT_TRUE(after);
    // Whatever others write meanwhile only adds to it; how much that is, the first two tell.
    EXPECT_GE(*before, *first);
    EXPECT_GE(*after - *before, bytes) << "others wrote " << *before - *first << " just before";
    const auto& reading = **monitor.latest;
    ASSERT_TRUE(reading.bytesWrittenPerSecond);
    EXPECT_GT(*reading.bytesWrittenPerSecond, 0.0);
}

// Sends datagrams to itself over the loopback and takes each; the bytes sent, or nothing.
std::optional<std::size_t> sendOverLoopback(int datagrams) {
    const FileDescriptor socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (!socket || ::bind(socket.get(), generic, size) != 0 ||
        ::getsockname(socket.get(), generic, &size) != 0)
        return std::nullopt;
    std::vector<char> block(1400);
    for (int i = 0; i < datagrams; ++i) {
        if (::sendto(socket.get(), block.data(), block.size(), 0, generic, size) < 0 ||
            ::recv(socket.get(), block.data(), block.size(), 0) < 0)
            return std::nullopt;
    }
    return block.size() * static_cast<std::size_t>(datagrams);
}

TEST_F(RunningMachine, counts_what_goes_over_its_loopback) {
    NetworkMonitor monitor(ports.networkInterfaces, ports.clock);
    monitor.refresh();
    const NetworkReading before = **monitor.latest;
    const auto isLoopback = [](const auto& each) {
        return each.kind == LinkKind::loopback && each.isActive;
    };
    if (std::ranges::none_of(before.interfaces, isLoopback))
        GTEST_SKIP() << "this machine has no active loopback";
    const auto sent = sendOverLoopback(1000);
    if (!sent) GTEST_SKIP() << "this machine refuses traffic over its loopback";
    monitor.refresh();
    const auto& after = **monitor.latest;
    EXPECT_GE(after.totalBytesIn - before.totalBytesIn, *sent);
    EXPECT_GE(after.totalBytesOut - before.totalBytesOut, *sent);
    EXPECT_GT(after.bytesInPerSecond.value_or(1.0), 0.0);
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
