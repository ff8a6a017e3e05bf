// SPDX-License-Identifier: MIT
#include "telemetry/DiskIOMonitor.h"

#include <gtest/gtest.h>

#include "platform/IORegistry.h"
#include "platform/simulated/Operations.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using Node = SimulatedDisks::Node;

// A monitor of a machine without drives but those that a test attaches.
struct Drives {
    Drives() {
        for (const Node driver : registry.ofClass("IOBlockStorageDriver"))
            bench.mac.disks.detach(driver);
    }

    TestBench bench;
    SimulatedRegistry& registry = bench.mac.registry;
    DiskIOMonitor monitor{bench.platform.ioRegistry, bench.clock};

    Node attach(std::optional<std::string> product, std::optional<std::string> bsdName) {
        return bench.mac.disks.attach({std::move(product), std::move(bsdName)});
    }
    void set(Node driver, DiskCounters counters) { bench.mac.disks.setCounters(driver, counters); }
    const DiskIOReading& refresh() {
        monitor.refresh();
        return **monitor.latest;
    }
    const DiskIOReading& refreshAfter(Duration span) {
        bench.clock.advanceBy(span);
        return refresh();
    }
    [[nodiscard]] std::string names() {
        std::string all;
        for (const auto& volume : refresh().volumes)
            all += volume.name + "/" + volume.bsdDevice.value_or("-") + " ";
        return all;
    }
};

TEST(DiskIOMonitor, the_first_refresh_lists_the_drives_without_rates) {
    Drives d;
    EXPECT_EQ(*d.monitor.latest, std::nullopt);
    d.set(d.attach("SSD", "disk0"), {1, 2, 3, 4});
    const auto& reading = d.refresh();
    ASSERT_EQ(reading.volumes.size(), 1U);
    EXPECT_EQ(static_cast<const DiskIOCounters&>(reading.volumes[0]), (DiskIOCounters{1, 2, 3, 4}));
    EXPECT_EQ(reading.bytesReadPerSecond, std::nullopt);
    EXPECT_EQ(reading.bytesWrittenPerSecond, std::nullopt);
    EXPECT_EQ(reading.readIOPS, std::nullopt);
    EXPECT_EQ(reading.writeIOPS, std::nullopt);
    EXPECT_EQ(reading.timestamp, d.bench.clock.now());
}

TEST(DiskIOMonitor, the_second_refresh_gives_the_rates_of_all_drives_together) {
    Drives d;
    const Node first = d.attach("SSD", "disk0");
    const Node second = d.attach("Stick", "disk4");
    d.refresh();
    d.bench.mac.disks.add(first, {1000, 200, 30, 4});
    d.bench.mac.disks.add(second, {1000, 0, 10, 0});
    const auto& reading = d.refreshAfter(seconds(2));
    EXPECT_EQ(reading.bytesReadPerSecond, 1000.0);
    EXPECT_EQ(reading.bytesWrittenPerSecond, 100.0);
    EXPECT_EQ(reading.readIOPS, 20.0);
    EXPECT_EQ(reading.writeIOPS, 2.0);
}

TEST(DiskIOMonitor, two_drives_of_one_device_stay_apart_in_the_list_and_add_up_in_the_rates) {
    Drives d;
    const Node first = d.attach("A", "disk0");
    const Node second = d.attach("B", "disk0");
    d.refresh();
    d.set(first, {300, 0, 0, 0});
    d.set(second, {200, 0, 0, 0});
    EXPECT_EQ(d.refreshAfter(seconds(1)).volumes.size(), 2U);
    EXPECT_EQ((*d.monitor.latest)->bytesReadPerSecond, 500.0);
    // What one loses the other may hide: it is their sum that fell or rose.
    d.set(first, {0, 0, 0, 0});
    d.set(second, {600, 0, 0, 0});
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 100.0);
}

TEST(DiskIOMonitor, a_counter_that_fell_counts_again_from_where_it_fell_to) {
    Drives d;
    const Node driver = d.attach("SSD", "disk0");
    d.set(driver, {1000, 0, 0, 0});
    d.refresh();
    d.set(driver, {400, 0, 0, 0});
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 0.0);
    d.set(driver, {450, 0, 0, 0});
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 50.0);
}

TEST(DiskIOMonitor, counters_that_wrap_or_jump_back_by_half_their_range_make_no_peak) {
    Drives d;
    const Node driver = d.attach("SSD", "disk0");
    d.set(driver, {~std::uint64_t{0}, std::uint64_t{1} << 63, 0xffffffffU, 7});
    d.refresh();
    d.bench.mac.disks.add(driver, {1000, std::uint64_t{1} << 63, 1, 1});
    const auto& reading = d.refreshAfter(seconds(1));
    EXPECT_EQ(reading.volumes[0].bytesRead, 999U);
    EXPECT_EQ(reading.bytesReadPerSecond, 0.0);
    EXPECT_EQ(reading.bytesWrittenPerSecond, 0.0);
    EXPECT_EQ(reading.readIOPS, 1.0);
    EXPECT_EQ(reading.writeIOPS, 1.0);
}

TEST(DiskIOMonitor, a_refresh_at_the_same_time_has_no_rates_and_still_moves_the_baseline) {
    Drives d;
    const Node driver = d.attach("SSD", "disk0");
    d.refresh();
    d.set(driver, {500, 0, 0, 0});
    EXPECT_EQ(d.refresh().bytesReadPerSecond, std::nullopt);
    d.set(driver, {600, 0, 0, 0});
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 100.0);
}

TEST(DiskIOMonitor, a_clock_that_was_set_back_gives_no_rates_once) {
    Drives d;
    d.refresh();
    d.bench.clock.setWallClock(d.bench.clock.now() - std::chrono::hours(1));
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, std::nullopt);
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 0.0);
}

TEST(DiskIOMonitor, a_clock_that_is_set_within_an_interval_makes_no_peak_and_no_dip) {
    for (const auto by : {std::chrono::milliseconds(-990), std::chrono::milliseconds(7'200'000)}) {
        Drives d;
        const Node driver = d.attach("SSD", "disk0");
        d.refresh();
        d.set(driver, {1000, 0, 0, 0});
        d.bench.clock.setWallClock(d.bench.clock.now() + by);
        EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 1000.0) << by.count();
    }
}

TEST(DiskIOMonitor, no_drives_are_a_reading_with_rates_of_zero) {
    Drives d;
    EXPECT_TRUE(d.refresh().volumes.empty());
    const auto& reading = d.refreshAfter(seconds(1));
    EXPECT_EQ(reading.bytesReadPerSecond, 0.0);
    EXPECT_EQ(reading.bytesWrittenPerSecond, 0.0);
    EXPECT_EQ(reading.readIOPS, 0.0);
    EXPECT_EQ(reading.writeIOPS, 0.0);
}

TEST(DiskIOMonitor, a_drive_that_is_attached_counts_from_its_second_reading) {
    Drives d;
    d.refresh();
    const Node driver = d.attach("Stick", "disk4");
    d.set(driver, {5000, 0, 0, 0});
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 0.0);
    d.bench.mac.disks.add(driver, {70, 0, 0, 0});
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 70.0);
}

TEST(DiskIOMonitor, a_drive_that_was_away_for_a_refresh_counts_from_its_return) {
    Drives d;
    const Node driver = d.attach("Stick", "disk4");
    d.set(driver, {5000, 0, 0, 0});
    d.refresh();
    d.bench.mac.disks.detach(driver);
    EXPECT_TRUE(d.refreshAfter(seconds(1)).volumes.empty());
    d.set(d.attach("Stick", "disk4"), {9000, 0, 0, 0});
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 0.0);
}

TEST(DiskIOMonitor, a_drive_that_is_swapped_between_two_refreshes_compares_by_its_device) {
    Drives d;
    const Node driver = d.attach("Stick", "disk4");
    d.set(driver, {5000, 0, 0, 0});
    d.refresh();
    d.bench.mac.disks.detach(driver);
    d.set(d.attach("Other stick", "disk4"), {100, 0, 0, 0});
    EXPECT_EQ(d.refreshAfter(seconds(1)).bytesReadPerSecond, 0.0);
    EXPECT_EQ(d.names(), "Other stick/disk4 ");
}

TEST(DiskIOMonitor, names_come_from_the_product_then_the_device_then_the_entry) {
    Drives d;
    d.attach("  SSD 512\n", "disk0");
    d.attach(std::nullopt, "disk1");
    const Node third = d.attach(std::nullopt, std::nullopt);
    d.registry.set(third, "Name", "Driver");
    d.attach(std::nullopt, std::nullopt);
    EXPECT_EQ(d.names(), "SSD 512/disk0 disk1/disk1 Driver/- —/- ");
}

TEST(DiskIOMonitor, a_product_name_of_blanks_or_of_another_type_is_passed_over_upward) {
    for (const Property& blank : {Property(" \t\n"), Property(""), Property(5)}) {
        Drives d;
        const Node driver = d.attach("Above", "disk0");
        d.registry.set(driver, "Device Characteristics", PropertyMap{{"Product Name", blank}});
        EXPECT_EQ(d.names(), "Above/disk0 ");
    }
    Drives d;
    d.registry.set(d.attach("Above", "disk0"), "Device Characteristics", "no dictionary");
    EXPECT_EQ(d.names(), "Above/disk0 ");
}

// A drive below `between` entries, above which one knows a product's name.
std::string nameBelow(int between) {
    Drives d;
    Node above = d.registry.add(d.registry.root(planes::service), "top", "IOThing");
    d.registry.set(above, "Device Characteristics", PropertyMap{{"Product Name", "Far"}});
    for (int i = 0; i < between; ++i) above = d.registry.add(above, "between", "IOThing");
    const Node driver = d.registry.add(above, "driver", "IOBlockStorageDriver");
    d.registry.set(driver, "Statistics", PropertyMap{});
    return d.names();
}

TEST(DiskIOMonitor, a_product_name_is_looked_for_in_six_entries_and_no_more) {
    EXPECT_EQ(nameBelow(0), "Far/- ");
    EXPECT_EQ(nameBelow(4), "Far/- ");
    EXPECT_EQ(nameBelow(5), "—/- ");
}

TEST(DiskIOMonitor, the_device_is_that_of_the_first_child_that_has_text_for_it) {
    Drives d;
    const Node driver = d.attach("SSD", std::nullopt);
    d.registry.set(d.registry.children(driver).front(), "BSD Name", 5);
    const Node second = d.registry.add(driver, "Media", "IOMedia");
    d.registry.add(second, "Part", "IOMedia", {{"BSD Name", "grandchild"}});
    EXPECT_EQ(d.names(), "SSD/- ");
    Drives e;
    const Node other = e.attach("SSD", std::nullopt);
    e.registry.add(other, "Media", "IOMedia", {{"BSD Name", "disk7"}});
    e.registry.add(other, "Media", "IOMedia", {{"BSD Name", "disk8"}});
    EXPECT_EQ(e.names(), "SSD/disk7 ");
}

TEST(DiskIOMonitor, names_are_worked_out_once_for_each_drive) {
    Drives d;
    const Node driver = d.attach("SSD", "disk0");
    d.refresh();
    d.bench.platform.resetCalls();
    d.registry.set(d.registry.parent(driver), "Device Characteristics",
                   PropertyMap{{"Product Name", "Renamed"}});
    EXPECT_EQ(d.names(), "SSD/disk0 ");
    const CallCounter::Counts expected{{"IOServiceMatching", 1},
                                       {"IOServiceGetMatchingServices", 1},
                                       {"IOIteratorNext", 2},
                                       {"IORegistryEntryCreateCFProperty", 1},
                                       {"IORegistryEntryGetRegistryEntryID", 1},
                                       {"IOObjectRelease", 2}};
    EXPECT_EQ(d.bench.platform.instruments.counter.all(), expected);
}

TEST(DiskIOMonitor, names_that_have_no_number_to_be_kept_by_are_worked_out_each_time) {
    Drives d;
    d.attach("SSD", "disk0");
    d.bench.failures.failNext(operations::getRegistryEntryID, 2);
    EXPECT_EQ(d.names(), "SSD/disk0 ");
    EXPECT_EQ(d.names(), "SSD/disk0 ");
    EXPECT_FALSE(d.bench.failures.hasUnused());
}

TEST(DiskIOMonitor, missing_numbers_are_zero_and_the_drive_is_listed) {
    Drives d;
    const Node driver = d.attach("SSD", "disk0");
    d.registry.set(driver, "Statistics",
                   PropertyMap{{"Bytes (Read)", 10},
                               {"Bytes (Write)", 20},
                               {"Operations (Read)", 3.75},
                               {"Latency", 1.5}});
    const auto& reading = d.refresh();
    ASSERT_EQ(reading.volumes.size(), 1U);
    EXPECT_EQ(static_cast<const DiskIOCounters&>(reading.volumes[0]),
              (DiskIOCounters{10, 20, 3, 0}));
}

TEST(DiskIOMonitor, a_drive_without_a_dictionary_of_numbers_is_left_out_while_that_lasts) {
    Drives d;
    const Node driver = d.attach("SSD", "disk0");
    d.refresh();
    for (const Property& statistics :
         {Property("text"), Property(5), Property(PropertyList{1}),
          Property(PropertyMap{{"Bytes (Read)", "10"}}),
          Property(PropertyMap{{"Bytes (Read)", 10}, {"Flag", true}})}) {
        d.registry.set(driver, "Statistics", statistics);
        EXPECT_TRUE(d.refreshAfter(seconds(1)).volumes.empty());
    }
    d.registry.unset(driver, "Statistics");
    EXPECT_TRUE(d.refreshAfter(seconds(1)).volumes.empty());
    d.registry.set(driver, "Statistics", PropertyMap{{"Bytes (Read)", 10}});
    EXPECT_EQ(d.refreshAfter(seconds(1)).volumes.size(), 1U);
    EXPECT_EQ((*d.monitor.latest)->bytesReadPerSecond, 0.0);
}

TEST(DiskIOMonitor, numbers_below_zero_and_beyond_the_range_are_none) {
    Drives d;
    const Node driver = d.attach("SSD", "disk0");
    d.registry.set(
        driver, "Statistics",
        PropertyMap{
            {"Bytes (Read)", -0.5}, {"Bytes (Write)", 1e300}, {"Operations (Read)", 9.3e18}});
    const auto& volume = d.refresh().volumes.at(0);
    EXPECT_EQ(volume.bytesRead, 0U);
    EXPECT_EQ(volume.bytesWritten, 0U);
    EXPECT_EQ(volume.readOps, 9'300'000'000'000'000'000U);
}

TEST(DiskIOMonitor, a_search_that_fails_in_any_way_is_an_empty_list_and_nothing_leaks) {
    for (const auto operation : {operations::serviceMatching, operations::getMatchingServices,
                                 operations::getMatchingServicesNull, operations::iteratorNext}) {
        Drives d;
        d.attach("SSD", "disk0");
        d.bench.failures.failNext(operation);
        EXPECT_TRUE(d.refresh().volumes.empty()) << operation;
        EXPECT_EQ(d.bench.platform.outstanding(), 0U) << operation;
        EXPECT_FALSE(d.bench.failures.hasUnused()) << operation;
        EXPECT_EQ(d.refreshAfter(seconds(1)).volumes.size(), 1U);
        EXPECT_TRUE(d.bench.log.lines().empty());
    }
}

TEST(DiskIOMonitor, a_walk_for_names_that_fails_leaves_the_name_to_the_next_source) {
    for (const auto operation : {operations::getChildIterator, operations::getChildIteratorNull}) {
        Drives d;
        d.attach("SSD", "disk0");
        d.bench.failures.failNext(operation);
        EXPECT_EQ(d.names(), "SSD/- ") << operation;
        EXPECT_EQ(d.bench.platform.outstanding(), 0U) << operation;
    }
    Drives e;
    e.attach("SSD", "disk0");
    e.bench.failures.failAlways(operations::getParentEntry);
    EXPECT_EQ(e.names(), "disk0/disk0 ");
    EXPECT_EQ(e.bench.platform.outstanding(), 0U);
}

TEST(DiskIOMonitor, the_simulated_mac_has_a_drive_that_lives) {
    TestBench bench;
    DiskIOMonitor monitor(bench.platform.ioRegistry, bench.clock);
    bench.mac.live(1);
    monitor.refresh();
    double highestRead = 0.0;
    double highestWritten = 0.0;
    for (int i = 0; i < 300; ++i) {
        bench.clock.advanceBy(seconds(1));
        monitor.refresh();
        highestRead = std::max(highestRead, *(*monitor.latest)->bytesReadPerSecond);
        highestWritten = std::max(highestWritten, *(*monitor.latest)->bytesWrittenPerSecond);
    }
    EXPECT_EQ((*monitor.latest)->volumes.at(0).bsdDevice, "disk0");
    EXPECT_GT(highestRead, 1e6);
    EXPECT_GT(highestWritten, 1e6);
    EXPECT_LT(highestRead + highestWritten, 1e9);
}

}  // namespace
}  // namespace vtx
