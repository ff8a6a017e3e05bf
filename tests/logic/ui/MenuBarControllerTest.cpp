// SPDX-License-Identifier: MIT
#include "ui/controller/MenuBarController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CoordinatorBench.h"
#include "support/FakeSurfaces.h"

namespace vtx {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr auto category = "MenuBarController";

struct Controlled {
    AppBench bench;
    FakeSurfaces surfaces;
    MenuBarController controller{bench.ports(), bench.executors(), surfaces};

    void publishCPU(double usage) {
        CPUStats stats;
        stats.totalUsage = usage;
        controller.coordinator().cpu.latest = stats;
    }
    void publishGPU(double utilization) {
        GPUStats stats;
        stats.deviceUtilization = utilization;
        controller.coordinator().gpu.latest = stats;
    }
    void publishMemory(std::uint64_t usedOfAMillion) {
        MemoryStats stats;
        stats.usedBytes = usedOfAMillion;
        stats.totalBytes = 1'000'000;
        controller.coordinator().memory.latest = stats;
    }
    void publishDisk(double bytesPerSecond, std::optional<double> written = 0.0) {
        DiskIOReading reading;
        reading.bytesReadPerSecond = bytesPerSecond;
        reading.bytesWrittenPerSecond = written;
        controller.coordinator().diskIO.latest = reading;
    }
    void publishTemperature(double celsius) {
        controller.coordinator().temperature.latest = TemperatureReading{celsius, {}, {}};
    }
    void publishFan(int rpm) {
        controller.coordinator().fan.latest = FanStats{{{0, rpm, {}, {}, {}}}, {}};
    }
    // Beyond the throttle of the size signals.
    void letSizeSettle() { bench.advance(std::chrono::milliseconds(200)); }
};

TEST(MenuBarController, starting_starts_the_loop_and_says_so_last) {
    Controlled c;
    EXPECT_TRUE(c.controller.coordinator().isRunning());
    EXPECT_EQ(c.bench.log.lines().back().message, "MenuBarController initialized");
    EXPECT_EQ(c.bench.log.lines().back().category, category);
}

TEST(MenuBarController, without_a_place_in_the_bar_it_logs_and_runs_on) {
    AppBench bench;
    FakeSurfaces surfaces;
    surfaces.givesButton = false;
    MenuBarController controller(bench.ports(), bench.executors(), surfaces);
    EXPECT_TRUE(bench.log.contains(LogLevel::error, category,
                                   "NSStatusItem.button was nil — cannot configure status item"));
    EXPECT_TRUE(surfaces.item->lengths.empty());
    EXPECT_TRUE(controller.coordinator().isRunning());
    controller.openSettings();
    EXPECT_FALSE(surfaces.popover->shown);
}

TEST(MenuBarController, a_left_click_toggles_the_popover) {
    Controlled c;
    c.surfaces.item->onClick(ButtonEvent::leftMouseUp);
    EXPECT_TRUE(c.surfaces.popover->shown);
    EXPECT_THAT(c.surfaces.did, Contains("activate"));
    EXPECT_TRUE(c.bench.log.contains(LogLevel::debug, category, "Popover opened"));
    c.surfaces.item->onClick(ButtonEvent::leftMouseUp);
    EXPECT_FALSE(c.surfaces.popover->shown);
}

TEST(MenuBarController, a_right_or_control_click_shows_the_menu_and_never_the_popover) {
    for (const auto event : {ButtonEvent::rightMouseUp, ButtonEvent::leftMouseUpWithControl}) {
        Controlled c;
        c.surfaces.item->onClick(event);
        EXPECT_FALSE(c.surfaces.popover->shown);
        EXPECT_FALSE(c.surfaces.item->menu.empty());
    }
}

TEST(MenuBarController, the_menu_has_its_entries_in_order) {
    Controlled c;
    c.surfaces.item->onClick(ButtonEvent::rightMouseUp);
    std::vector<std::string> titles;
    for (const auto& item : c.surfaces.item->menu)
        titles.push_back(item.title + (item.key.empty() ? "" : " " + item.key));
    EXPECT_THAT(titles, ElementsAre("About Vantrix", "", "Settings… ,", "Open Dashboard", "",
                                    "Refresh Now r", "Show Mini Widget", "", "Quit Vantrix q"));
}

TEST(MenuBarController, about_activates_and_shows_the_panel) {
    Controlled c;
    c.surfaces.item->onClick(ButtonEvent::rightMouseUp);
    c.surfaces.item->choose("About Vantrix");
    EXPECT_THAT(c.surfaces.did, ElementsAre("activate", "about"));
}

TEST(MenuBarController, settings_toggles_the_popover) {
    Controlled c;
    c.controller.openSettings();
    EXPECT_TRUE(c.surfaces.popover->shown);
    c.controller.openSettings();
    EXPECT_FALSE(c.surfaces.popover->shown);
}

TEST(MenuBarController, open_dashboard_shows_the_overview_and_closes_the_popover) {
    Controlled c;
    c.controller.togglePopover();
    c.controller.openDashboardWindow();
    EXPECT_THAT(c.surfaces.dashboard->shown, ElementsAre(PopoverSection::overview));
    EXPECT_FALSE(c.surfaces.popover->shown);
    EXPECT_EQ(*c.controller.coordinator().pollingMode, PollingMode::active);
}

TEST(MenuBarController, detaching_opens_the_dashboard_at_the_section_and_stays_active_throughout) {
    Controlled c;
    c.controller.togglePopover();
    std::vector<PollingMode> modes;
    const auto token = c.controller.coordinator().pollingMode.subscribe(
        [&modes](PollingMode mode) { modes.push_back(mode); });
    c.surfaces.popover->detach(PopoverSection::processes);
    EXPECT_THAT(c.surfaces.dashboard->shown, ElementsAre(PopoverSection::processes));
    EXPECT_FALSE(c.surfaces.popover->shown);
    EXPECT_THAT(modes, ElementsAre(PollingMode::active));
}

TEST(MenuBarController, refresh_now_makes_a_pass_of_its_own) {
    Controlled c;
    c.bench.settle();
    const auto before = c.bench.platform.calls("host_processor_info");
    c.controller.refreshNow();
    c.bench.settle();
    EXPECT_EQ(c.bench.platform.calls("host_processor_info"), before + 1);
}

TEST(MenuBarController, refresh_now_reads_the_processes_whatever_their_pace) {
    Controlled c;
    c.bench.settle();
    c.controller.togglePopover();  // under which they have just been read
    c.bench.settle();
    const auto before = c.bench.platform.calls(operations::processDetails);
    c.controller.refreshNow();
    c.bench.settle();
    EXPECT_GT(c.bench.platform.calls(operations::processDetails), before);
}

TEST(MenuBarController, quit_stops_the_loop_and_the_observers_and_asks_to_terminate) {
    Controlled c;
    c.surfaces.item->onClick(ButtonEvent::rightMouseUp);
    c.surfaces.item->choose("Quit Vantrix");
    EXPECT_FALSE(c.controller.coordinator().isRunning());
    EXPECT_EQ(c.bench.platform.instruments.handles.outstanding(handles::powerStateDidChange), 0U);
    EXPECT_THAT(c.surfaces.did, ElementsAre("terminate"));
    EXPECT_TRUE(
        c.bench.log.contains(LogLevel::info, category, "User requested quit via context menu"));
}

TEST(MenuBarController, the_item_is_as_wide_as_the_strip_rounded_up) {
    Controlled c;
    EXPECT_THAT(c.surfaces.item->lengths, ElementsAre(100.0));
    c.surfaces.item->contentWidth = 120.2;
    c.surfaces.item->onIntrinsicWidthChange();
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.back(), 121.0);
}

TEST(MenuBarController, the_item_is_never_narrower_than_24) {
    Controlled c;
    c.surfaces.item->contentWidth = 12.0;
    c.surfaces.item->onIntrinsicWidthChange();
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.back(), 24.0);
}

TEST(MenuBarController, a_width_that_changes_under_the_popover_is_applied_after_it_closes) {
    Controlled c;
    c.letSizeSettle();
    c.controller.togglePopover();
    const auto before = c.surfaces.item->lengths.size();
    for (const double width : {130.0, 140.0}) {
        c.surfaces.item->contentWidth = width;
        c.surfaces.item->onIntrinsicWidthChange();
        c.letSizeSettle();
    }
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.controller.togglePopover();
    ASSERT_EQ(c.surfaces.item->lengths.size(), before + 1);
    EXPECT_EQ(c.surfaces.item->lengths.back(), 140.0);
}

TEST(MenuBarController, closing_the_popover_without_a_held_width_measures_nothing) {
    Controlled c;
    c.letSizeSettle();
    c.controller.togglePopover();
    const auto before = c.surfaces.item->lengths.size();
    c.controller.togglePopover();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
}

TEST(MenuBarController, a_reading_that_leaves_the_label_as_it_is_measures_nothing) {
    Controlled c;
    c.publishCPU(0.121);
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.publishCPU(0.124);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.publishCPU(0.13);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, another_label_of_the_graphics_measures_the_strip) {
    Controlled c;
    c.letSizeSettle();  // with the machine's own first reading
    c.publishGPU(0.121);
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.publishGPU(0.124);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.publishGPU(0.13);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, another_label_of_the_memory_measures_the_strip) {
    Controlled c;
    c.letSizeSettle();  // with the machine's own first reading
    c.publishMemory(501'000);
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.publishMemory(504'000);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.publishMemory(506'000);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, one_known_rate_of_the_drives_is_a_label_too) {
    Controlled c;
    c.letSizeSettle();
    c.publishDisk(2'097'152, std::nullopt);
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.publishDisk(52'428'800, std::nullopt);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, another_thermal_level_is_left_to_the_strip_to_tell) {
    Controlled c;
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.controller.coordinator().thermal.latest = ThermalStats{ThermalStats::Level::serious, {}};
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.surfaces.item->onIntrinsicWidthChange();
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, compact_mode_chosen_in_the_popover_resizes_the_item_once_it_closes) {
    Controlled c;
    c.letSizeSettle();
    c.controller.togglePopover();
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    for (const double width : {40.0, 100.0, 40.0}) {
        c.controller.coordinator().preferences.modify(
            [](auto& p) { p.menuBarCompact = !p.menuBarCompact; });
        c.surfaces.item->contentWidth = width;
        c.letSizeSettle();
    }
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.controller.togglePopover();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
    EXPECT_EQ(c.surfaces.item->lengths.back(), 40.0);
}

TEST(MenuBarController, another_label_of_the_drives_measures_the_strip) {
    Controlled c;
    c.letSizeSettle();  // with the machine's own first reading
    c.publishDisk(2'097'152);
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.publishDisk(2'100'000);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.publishDisk(52'428'800);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, another_whole_degree_measures_the_strip) {
    Controlled c;
    c.letSizeSettle();  // with the machine's own readings
    c.publishTemperature(62.6);
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.publishTemperature(63.4);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.publishTemperature(63.6);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, a_temperature_that_goes_measures_the_strip) {
    Controlled c;
    c.publishTemperature(55.0);
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.controller.coordinator().temperature.latest = std::nullopt;
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, a_place_in_the_bar_that_has_gone_is_not_sized) {
    Controlled c;
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.surfaces.item->isThere = false;
    c.surfaces.item->onIntrinsicWidthChange();
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.surfaces.item->isThere = true;
    c.surfaces.item->onIntrinsicWidthChange();
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, another_speed_of_the_fastest_fan_measures_the_strip) {
    Controlled c;
    c.letSizeSettle();
    c.publishFan(2000);
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    c.publishFan(2000);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before);
    c.publishFan(2001);
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, a_burst_of_labels_is_measured_at_most_once_in_80_milliseconds) {
    Controlled c;
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    for (int i = 1; i <= 7; ++i) {
        c.publishCPU(i / 10.0);
        c.bench.advance(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
    c.bench.advance(std::chrono::milliseconds(80));
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 2);
}

TEST(MenuBarController, a_changed_preference_measures_the_strip) {
    Controlled c;
    c.letSizeSettle();
    const auto before = c.surfaces.item->lengths.size();
    auto preferences = *c.controller.coordinator().preferences;
    preferences.showMemory = false;
    c.controller.coordinator().preferences = preferences;
    c.letSizeSettle();
    EXPECT_EQ(c.surfaces.item->lengths.size(), before + 1);
}

TEST(MenuBarController, nothing_stays_behind_when_it_goes) {
    AppBench bench;
    FakeSurfaces surfaces;
    {
        MenuBarController controller(bench.ports(), bench.executors(), surfaces);
        controller.refreshNow();
        bench.main.drain();
    }
    bench.settle();
    bench.dropSensors();
    EXPECT_EQ(bench.platform.outstanding(), 0U);
    EXPECT_TRUE(bench.clock.pending().empty());
}

}  // namespace
}  // namespace vtx
