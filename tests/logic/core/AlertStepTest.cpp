// SPDX-License-Identifier: MIT
// How the alerts join the pass.
#include <gtest/gtest.h>

#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

struct Steps : CoordinatorBench {
    SimulatedUserNotificationCenter& center = platform.userNotifications;

    /// Nothing but the alerts asks for a sample.
    void closeAll() {
        change([](auto& p) {
            p.showCPU = p.showGPU = p.showThermal = p.showMemory = false;
            p.menuBarLiveCPU = p.menuBarLiveGPU = p.menuBarLiveMemory = p.menuBarLiveTemp = false;
        });
    }
    void burn() { mac.processors.setLoadOfAll({.user = 1.0}); }
    [[nodiscard]] std::vector<std::string> told() const {
        std::vector<std::string> all;
        for (const auto& request : center.posted()) all.push_back(request.identifier);
        return all;
    }
};

TEST(AlertStep, an_alert_works_with_every_surface_closed_and_every_tile_off) {
    for (const auto mode : {PollingMode::background, PollingMode::batterySaver}) {
        Steps b;
        b.closeAll();
        b.change([](auto& p) { p.alertCPUEnabled = true; });
        b.burn();
        b.coordinator.setPollingMode(mode);
        b.coordinator.start();
        b.advance(seconds(60));
        EXPECT_EQ(b.told(), std::vector<std::string>{"vantrix.alert.cpu"});
    }
}

TEST(AlertStep, comes_ten_seconds_after_the_first_load_that_is_high) {
    Steps b;
    b.change([](auto& p) { p.alertCPUEnabled = true; });
    b.burn();
    b.coordinator.start();
    // The first sample is a baseline, so the first load comes a second later.
    b.advance(seconds(10));
    EXPECT_TRUE(b.told().empty());
    b.advance(seconds(1));
    EXPECT_EQ(b.told().size(), 1U);
}

TEST(AlertStep, looks_at_what_the_same_pass_has_read) {
    Steps b;
    b.change([](auto& p) {
        p.alertMemoryEnabled = true;
        p.alertMemoryThreshold = 0.0;
    });
    b.coordinator.start();
    b.advance(seconds(29));
    EXPECT_TRUE(b.told().empty());
    b.advance(seconds(1));
    EXPECT_EQ(b.told(), std::vector<std::string>{"vantrix.alert.memory"});
}

TEST(AlertStep, watches_the_temperature_and_the_graphics) {
    Steps b;
    b.closeAll();
    b.change([](auto& p) {
        p.alertGPUEnabled = p.alertTempEnabled = true;
        p.alertGPUThreshold = p.alertTempCelsius = 0.0;
    });
    b.coordinator.start();
    b.advance(seconds(20));
    EXPECT_EQ(b.told(),
              (std::vector<std::string>{"vantrix.alert.gpu", "vantrix.alert.temperature"}));
}

TEST(AlertStep, the_switches_of_other_metrics_raise_nothing) {
    Steps b;
    b.change([](auto& p) {
        p.alertDiskEnabled = p.alertPowerEnabled = p.alertFanEnabled = p.alertANEEnabled = true;
        p.alertDiskThreshold = p.alertPowerWatts = p.alertANEThreshold = 0.0;
        p.alertFanRPM = 0;
    });
    b.burn();
    b.coordinator.start();
    b.advance(seconds(120));
    EXPECT_TRUE(b.told().empty());
}

TEST(AlertStep, is_told_once_however_often_a_surface_is_opened) {
    Steps b;
    b.change([](auto& p) { p.alertCPUEnabled = true; });
    b.burn();
    b.coordinator.start();
    for (const auto mode : {PollingMode::active, PollingMode::background, PollingMode::active}) {
        b.advance(seconds(20.5));
        b.coordinator.setPollingMode(mode);
    }
    b.advance(seconds(20));
    EXPECT_EQ(b.told().size(), 1U);
}

TEST(AlertStep, no_evaluation_happens_while_the_machine_sleeps) {
    Steps b;
    b.change([](auto& p) { p.alertCPUEnabled = true; });
    b.burn();
    b.coordinator.start();
    b.advance(seconds(5));
    b.mac.sleep();
    b.advance(seconds(3600));
    EXPECT_TRUE(b.told().empty());
}

}  // namespace
}  // namespace vtx
