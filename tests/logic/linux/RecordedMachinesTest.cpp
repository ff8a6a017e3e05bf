// SPDX-License-Identifier: MIT
// The recorded machines through the whole road: the platform as it runs natively, with a folder in
// the place of "/", and the services of the application upon it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "fan/FanMonitor.h"
#include "fan/SharedFans.h"
#include "linux/SensorMachine.h"
#include "linux/TemporaryTree.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/LinuxSMCUserClient.h"
#include "platform/linux/PollRunLoop.h"
#include "smc/SMCBridge.h"
#include "smc/SharedSensors.h"
#include "smc/TemperatureService.h"
#include "support/AtOnceExecutor.h"
#include "support/TestBench.h"
#include "telemetry/SystemInfoService.h"

namespace vtx::test {
namespace {

/// A machine as the program finds it at start.
struct NativeMachine {
    explicit NativeMachine(const std::string& name)
        : platform(loop, loop.executor(),
                   {.root = fixture(name),
                    .configFolder = {},
                    .busAddress = "unix:path=/nowhere",
                    .environment = [](std::string_view) { return std::nullopt; },
                    .slowReads = &worker}) {}

    [[nodiscard]] std::optional<double> temperature() {
        TemperatureService service;
        service.refresh();
        return *service.latest ? (*service.latest)->cpuMaxC : std::nullopt;
    }
    /// Speeds of all fans that are shown.
    [[nodiscard]] std::vector<int> fans() {
        FanMonitor monitor(platform.ports());
        monitor.refresh();
        std::vector<int> speeds;
        for (const auto& fan : monitor.latest->fans) speeds.push_back(fan.currentRPM);
        return speeds;
    }
    [[nodiscard]] SystemInfo info() { return SystemInfoService::detect(platform.ports()); }

    PollRunLoop loop;
    AtOnceExecutor worker;
    LinuxPlatform platform;
    SharedSensors sensors{platform.ports()};
    SharedFans sharedFans{platform.ports()};
};

using Speeds = std::vector<int>;

TEST(RecordedMachine, a_hybrid_laptop_shows_its_package_and_two_fans) {
    NativeMachine laptop("intel-hybrid-laptop-6.12");
    EXPECT_EQ(laptop.temperature(), 52.0);
    EXPECT_EQ(laptop.fans(), (Speeds{2410, 2395}));
    const auto info = laptop.info();
    EXPECT_EQ(info.chipName, "12th Gen Intel(R) Core(TM) i7-1260P");
    EXPECT_EQ(info.architecture, SystemInfo::Architecture::intel);
    EXPECT_EQ(info.pCoreCount, 8);
    EXPECT_EQ(info.eCoreCount, 8);
    EXPECT_EQ(info.fanCount, 2);
    EXPECT_EQ(info.ramType, "LPDDR5");
    EXPECT_EQ(info.modelIdentifier, "Hybrid Laptop 14");
    EXPECT_EQ(info.modelFamily, "Hybrid Laptop 14 Gen 2");
}

TEST(RecordedMachine, a_desktop_shows_its_die_and_the_fans_that_are_there) {
    NativeMachine desktop("amd-desktop-6.8");
    EXPECT_EQ(desktop.temperature(), 58.875);
    // That of the graphics rests, and it is known that it could turn; empty headers are not shown.
    EXPECT_EQ(desktop.fans(), (Speeds{0, 842, 1205, 1534, 2812}));
    const auto info = desktop.info();
    EXPECT_EQ(info.architecture, SystemInfo::Architecture::unknown);
    EXPECT_EQ(info.totalCores, 16);
    EXPECT_EQ(info.ramType, "DDR4");
    EXPECT_EQ(info.ramSpeedMTps, 3600);
    EXPECT_EQ(info.modelIdentifier, "X570 Board");
}

TEST(RecordedMachine, a_server_shows_its_hotter_socket_and_no_fans) {
    NativeMachine server("two-socket-server-5.15");
    EXPECT_EQ(server.temperature(), 63.0);
    EXPECT_EQ(server.fans(), Speeds{});
    EXPECT_EQ(server.info().fanCount, 0);
    EXPECT_EQ(server.info().ramType, "DDR4");
    EXPECT_EQ(server.info().ramSpeedMTps, std::nullopt);
}

TEST(RecordedMachine, a_board_shows_its_processors_zone_and_its_fan) {
    NativeMachine board("arm-big-little-board-6.6");
    EXPECT_FLOAT_EQ(static_cast<float>(board.temperature().value_or(0)), 48.333F);
    EXPECT_EQ(board.fans(), Speeds{2940});
}

TEST(RecordedMachine, a_dell_laptop_shows_its_package_and_its_fan) {
    NativeMachine dell("dell-laptop-6.1");
    EXPECT_EQ(dell.temperature(), 61.0);
    EXPECT_EQ(dell.fans(), Speeds{3187});
    FanMonitor monitor(dell.platform.ports());
    monitor.refresh();
    EXPECT_EQ(monitor.latest->fans.at(0), (FanReading{0, 3187, 3000, 0, 5700}));
    EXPECT_EQ(dell.info().modelFamily, "Latitude");
}

TEST(RecordedMachine, an_asus_laptop_shows_its_die_and_two_fans) {
    NativeMachine asus("amd-two-gpus-laptop-6.15");
    EXPECT_EQ(asus.temperature(), 67.375);
    EXPECT_EQ(asus.fans(), (Speeds{2900, 3100}));
    EXPECT_TRUE(asus.info().hasGPU);
}

TEST(RecordedMachine, a_machine_that_tells_nothing_shows_nothing) {
    NativeMachine server("virtual-server-6.18");
    EXPECT_EQ(SMCBridge::shared(), nullptr);
    EXPECT_EQ(server.temperature(), std::nullopt);
    EXPECT_EQ(server.fans(), Speeds{});
    const auto info = server.info();
    EXPECT_EQ(info.fanCount, 0);
    EXPECT_EQ(info.ramType, std::nullopt);
    EXPECT_EQ(info.modelIdentifier, "Unknown");
    EXPECT_EQ(info.modelFamily, "Unknown");
}

/// One line of a recorded load, in thousandths of a degree.
struct LoadSecond {
    std::string package;
    std::vector<std::string> cores;
};

std::vector<LoadSecond> recordedLoad() {
    std::vector<LoadSecond> seconds;
    std::ifstream in(fixture("intel-hybrid-laptop-6.12/load.txt"));
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with('#')) continue;
        std::istringstream fields(line);
        std::string number;
        LoadSecond second;
        fields >> number >> second.package;
        for (std::string core; fields >> core;) second.cores.push_back(core);
        seconds.push_back(std::move(second));
    }
    return seconds;
}

/// The recorded laptop with sensors that a test moves, under a clock that it moves too.
struct LaptopUnderLoad : testing::Test {
    LaptopUnderLoad() {
        std::filesystem::copy(fixture("intel-hybrid-laptop-6.12/sys"), tree / "sys",
                              std::filesystem::copy_options::recursive |
                                  std::filesystem::copy_options::copy_symlinks);
        bench.platform.otherSMC = &client;
        bench.restartSensors();
    }
    ~LaptopUnderLoad() override { bench.dropSensors(); }

    void play(const LoadSecond& second) {
        static const std::vector<int> channels{2, 6, 10, 14, 18, 19, 20, 21, 22, 23, 24, 25};
        ASSERT_EQ(second.cores.size(), channels.size());
        const std::string folder = "/sys/devices/platform/coretemp.0/hwmon/hwmon4/temp";
        tree.write(folder + "1_input", second.package + "\n");
        for (std::size_t i = 0; i < channels.size(); ++i)
            tree.write(folder + std::to_string(channels[i]) + "_input", second.cores[i] + "\n");
    }

    TemporaryTree tree;
    LinuxRoot root{tree.path()};
    SimulatedUserDefaults names;
    FakeDeviceChanges changes;
    AtOnceExecutor worker;
    TestBench bench;
    LinuxSMCUserClient client{
        root, {changes, names, {worker, bench.clock, [this] { return bench.clock.continuous(); }}}};
};

TEST_F(LaptopUnderLoad, shows_its_package_from_the_first_second_to_the_last) {
    const auto load = recordedLoad();
    ASSERT_EQ(load.size(), 90u);
    play(load.front());
    TemperatureService service;
    std::vector<double> packages{std::stod(load.front().package) / 1000};
    double hottest = 0;
    for (std::size_t i = 1; i < load.size(); ++i) {
        play(load[i]);
        bench.advance(std::chrono::seconds(1));
        service.refresh();
        packages.push_back(std::stod(load[i].package) / 1000);
        // The middle one of the last three, and of two the lower.
        std::vector<double> last(packages.end() - std::min<std::ptrdiff_t>(3, std::ssize(packages)),
                                 packages.end());
        std::ranges::sort(last);
        EXPECT_EQ((*service.latest)->cpuMaxC, last[last.size() == 3 ? 1 : 0]) << i;
        hottest = std::max(hottest, (*service.latest)->cpuMaxC.value_or(0));
    }
    EXPECT_GE(hottest, 95.0);
    // A minute is over and no sensor was taken for a hot spot.
    ASSERT_TRUE(SMCBridge::shared());
    EXPECT_TRUE(SMCBridge::shared()->calibration().isDone());
    EXPECT_TRUE(SMCBridge::shared()->calibration().denylist().empty());
    EXPECT_EQ(SMCBridge::shared()->cpuKeys().size(), 1u);
}

TEST_F(LaptopUnderLoad, would_lose_its_fast_cores_were_they_offered_one_by_one) {
    SensorPeaks peaks;
    for (const auto& second : recordedLoad()) {
        for (std::size_t core = 0; core < second.cores.size(); ++core) {
            double& peak = peaks["core " + std::to_string(core)];
            peak = std::max(peak, std::stod(second.cores[core]) / 1000);
        }
    }
    EXPECT_EQ(HotSpotClassifier::classifyWithStats(peaks).denylist.size(), 4u);
}

}  // namespace
}  // namespace vtx::test
