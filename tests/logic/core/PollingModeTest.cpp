// SPDX-License-Identifier: MIT
// The whole table of what happens and which mode follows, on the simulated machine.
#include "core/PollingMode.h"

#include <gtest/gtest.h>

#include "platform/simulated/SimulatedSensors.h"
#include "support/CoordinatorBench.h"
#include "support/FakeSurfaces.h"
#include "ui/controller/MenuBarController.h"

namespace vtx {
namespace {

struct Situation {
    bool onBattery = false;
    bool popover = false;
    bool dashboard = false;
};

// A controller brought into a situation.
class Modes {
public:
    explicit Modes(Situation now) {
        bench.mac.setPower(now.onBattery ? SimulatedPower::battery : SimulatedPower::mains);
        if (now.dashboard) controller.openDashboardWindow();
        if (now.popover) controller.togglePopover();
        bench.settle();
    }
    AppBench bench;
    FakeSurfaces surfaces;
    MenuBarController controller{bench.ports(), bench.executors(), surfaces};

    PollingMode mode() { return *controller.coordinator().pollingMode; }
};

constexpr auto active = PollingMode::active;
constexpr auto background = PollingMode::background;
constexpr auto batterySaver = PollingMode::batterySaver;
constexpr auto suspended = PollingMode::suspended;

PollingMode idle(bool onBattery) { return onBattery ? batterySaver : background; }

TEST(PollingModes, start_up_is_idle_by_the_power_source) {
    for (const bool onBattery : {false, true}) {
        AppBench bench;
        bench.mac.setPower(onBattery ? SimulatedPower::battery : SimulatedPower::mains);
        FakeSurfaces surfaces;
        MenuBarController controller(bench.ports(), bench.executors(), surfaces);
        EXPECT_EQ(*controller.coordinator().pollingMode, idle(onBattery));
        EXPECT_TRUE(controller.coordinator().isRunning());
    }
}

TEST(PollingModes, start_up_on_battery_starts_the_loop_twice_and_the_second_one_stays) {
    AppBench bench;
    bench.mac.setPower(SimulatedPower::battery);
    FakeSurfaces surfaces;
    const MenuBarController controller(bench.ports(), bench.executors(), surfaces);
    bench.advance(seconds(2));
    EXPECT_EQ(bench.log.count(LogLevel::info, "MetricsCoordinator",
                              "MetricsCoordinator started (mode=batterySaver, interval=2.000000s)"),
              2U);
    EXPECT_EQ(bench.platform.calls("host_processor_info"), 2U);
}

TEST(PollingModes, an_open_popover_is_active) {
    Modes m({.onBattery = true});
    m.controller.togglePopover();
    EXPECT_EQ(m.mode(), active);
}

TEST(PollingModes, closing_the_popover_is_idle_unless_the_dashboard_is_open) {
    for (const bool onBattery : {false, true}) {
        for (const bool dashboard : {false, true}) {
            Modes m({onBattery, true, dashboard});
            m.surfaces.popover->close();
            EXPECT_EQ(m.mode(), dashboard ? active : idle(onBattery));
        }
    }
}

TEST(PollingModes, the_dashboard_opening_is_active) {
    Modes m({.onBattery = true});
    m.controller.openDashboardWindow();
    EXPECT_EQ(m.mode(), active);
}

TEST(PollingModes, the_dashboard_closing_is_idle_unless_the_popover_is_shown) {
    for (const bool onBattery : {false, true}) {
        for (const bool popover : {false, true}) {
            Modes m({onBattery, popover, true});
            m.surfaces.dashboard->userCloses();
            EXPECT_EQ(m.mode(), popover ? active : idle(onBattery));
        }
    }
}

TEST(PollingModes, a_switched_low_power_mode_chooses_again_unless_the_popover_is_shown) {
    for (const bool onBattery : {false, true}) {
        for (const bool dashboard : {false, true}) {
            Modes m({!onBattery, false, dashboard});
            m.bench.mac.setPower(onBattery ? SimulatedPower::battery : SimulatedPower::mains);
            m.bench.mac.setLowPowerMode(true);
            m.bench.settle();
            EXPECT_EQ(m.mode(), dashboard ? active : idle(onBattery));
        }
    }
}

TEST(PollingModes, a_switched_low_power_mode_changes_nothing_while_the_popover_is_shown) {
    Modes m({.onBattery = true, .popover = true});  // any choice would leave `background`
    m.bench.mac.sleep();
    m.bench.mac.wake();
    m.bench.settle();
    ASSERT_EQ(m.mode(), background);
    m.bench.mac.setLowPowerMode(true);
    m.bench.settle();
    EXPECT_EQ(m.mode(), background);
}

TEST(PollingModes, a_pulled_plug_is_noticed_only_at_the_next_event) {
    Modes m({});
    m.bench.mac.setPower(SimulatedPower::battery);
    m.bench.advance(seconds(10));
    EXPECT_EQ(m.mode(), background);
    m.controller.togglePopover();
    m.controller.togglePopover();
    EXPECT_EQ(m.mode(), batterySaver);
}

TEST(PollingModes, sleep_is_suspended_in_every_situation) {
    for (const bool popover : {false, true}) {
        Modes m({.popover = popover});
        m.bench.mac.sleep();
        m.bench.settle();
        EXPECT_EQ(m.mode(), suspended);
        EXPECT_FALSE(m.controller.coordinator().isRunning());
    }
}

TEST(PollingModes, waking_is_background_whatever_is_open_and_whatever_powers_the_machine) {
    for (const bool popover : {false, true}) {
        for (const bool dashboard : {false, true}) {
            Modes m({true, popover, dashboard});
            m.bench.sleepMachine(seconds(600));
            EXPECT_EQ(m.mode(), background);
        }
    }
}

TEST(PollingModes, after_waking_the_next_event_of_the_table_chooses_again) {
    Modes m({.onBattery = true, .popover = true});
    m.bench.sleepMachine(seconds(600));
    m.controller.togglePopover();
    EXPECT_EQ(m.mode(), batterySaver);
}

TEST(PollingModes,
     woken_under_an_open_popover_neither_histories_nor_network_go_on_until_it_closes) {
    Modes m({.popover = true, .dashboard = true});
    m.bench.advance(seconds(10));
    auto& coordinator = m.controller.coordinator();
    m.bench.sleepMachine(seconds(600));
    m.bench.settle();
    const auto points = coordinator.cpuHistory->size();
    const auto read = coordinator.network.latest->value().timestamp;
    ASSERT_GT(points, 0U);
    m.bench.advance(seconds(60));
    EXPECT_EQ(coordinator.cpuHistory->size(), points);
    EXPECT_EQ(coordinator.network.latest->value().timestamp, read);
    m.surfaces.popover->close();  // the dashboard stays
    m.bench.advance(seconds(5));
    EXPECT_GT(coordinator.cpuHistory->size(), points);
    EXPECT_GT(coordinator.network.latest->value().timestamp, read);
}

TEST(PollingModes, closing_every_surface_stops_what_only_they_need) {
    Modes m({});
    auto preferences = *m.controller.coordinator().preferences;
    preferences.showCPU = preferences.menuBarLiveCPU = false;
    preferences.showGPU = preferences.menuBarLiveGPU = false;
    preferences.showDiskIO = preferences.menuBarLiveDisk = false;
    preferences.showMemory = preferences.menuBarLiveMemory = false;
    preferences.showThermal = preferences.menuBarLiveTemp = false;
    preferences.showFan = preferences.menuBarLiveFan = false;
    m.controller.coordinator().preferences = preferences;
    const auto samplesInTenSeconds = [&m] {
        m.bench.settle();
        m.bench.platform.resetCalls();
        m.bench.advance(seconds(10));
        return m.bench.platform.calls("host_processor_info");
    };
    // The thermal level is watched in every mode.
    const CallCounter::Counts idle{{"processInfo:thermalState", 10}};
    EXPECT_EQ(samplesInTenSeconds(), 0U);
    EXPECT_EQ(m.bench.platform.instruments.counter.all(), idle);
    m.controller.togglePopover();
    EXPECT_EQ(samplesInTenSeconds(), 10U);
    m.controller.togglePopover();
    EXPECT_EQ(samplesInTenSeconds(), 0U);
    m.controller.openDashboardWindow();
    EXPECT_EQ(samplesInTenSeconds(), 10U);
    m.surfaces.dashboard->userCloses();
    EXPECT_EQ(samplesInTenSeconds(), 0U);
    EXPECT_EQ(m.bench.platform.instruments.counter.all(), idle);
}

// The processor's sensors and the battery's, the number of fans, and four speeds of each.
std::size_t valuesOfAPass(const MacShape& shape) {
    return sensors::cpuKeys(shape).size() + 1 + 1 + 4 * shape.fanCount;
}

TEST(PollingModes, each_mode_asks_the_platform_for_this_and_no_more_in_a_pass) {
    for (const auto mode : {active, background, batterySaver}) {
        CoordinatorBench b;
        b.coordinator.setPollingMode(mode);
        b.coordinator.start();
        b.settle();
        b.platform.resetCalls();
        b.advance(seconds(b.coordinator.effectiveInterval()));
        const std::size_t values = valuesOfAPass(b.mac.processors.shape());
        CallCounter::Counts expected{{"host_processor_info", 1},
                                     {"IOServiceMatching", 1},
                                     {"IOServiceGetMatchingServices", 1},
                                     {"IOIteratorNext", 2},
                                     {"IORegistryEntryCreateCFProperty", 1},
                                     {"IORegistryEntryGetRegistryEntryID", 1},
                                     {"IOObjectRelease", 2},
                                     {"vm_deallocate", 1},
                                     {"host_statistics64", 1},
                                     {"sysctlbyname:vm.swapusage", 1},
                                     {"processInfo:thermalState", 1},
                                     {"IOReportCreateSamples", 1},
                                     {"IOReportCreateSamplesDelta", 1},
                                     {"IORegistryEntryCreateCFProperties", 1},
                                     {"IOConnectCallStructMethod", values},
                                     {"SMC:readValue", values}};
        if (mode == active) {
            expected.insert({{"getifaddrs", 1}, {"getnameinfo", 8}, {"freeifaddrs", 1}});
            ++expected["IORegistryEntryCreateCFProperties"];
            for (const auto* call :
                 {"powerSources:copy", "powerSources:type", "powerSources:list",
                  "powerSources:description", "IOServiceMatching", "IOServiceGetMatchingService",
                  "IOObjectRelease", "processInfo:isLowPowerModeEnabled"})
                ++expected[call];
        }
        EXPECT_EQ(b.platform.instruments.counter.all(), expected) << name(mode);
    }
}

}  // namespace
}  // namespace vtx
