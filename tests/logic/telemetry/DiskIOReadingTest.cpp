// SPDX-License-Identifier: MIT
#include "telemetry/DiskIOReading.h"

#include <gtest/gtest.h>

#include <limits>

namespace vtx {
namespace {

DiskIOSnapshot drive(std::string name, std::optional<std::string> device, DiskIOCounters counters) {
    DiskIOSnapshot snapshot;
    static_cast<DiskIOCounters&>(snapshot) = counters;
    snapshot.name = std::move(name);
    snapshot.bsdDevice = std::move(device);
    return snapshot;
}

DiskIOTotals totalsOf(const std::vector<DiskIOSnapshot>& volumes) {
    DiskIOTotals totals;
    addUp(volumes, totals);
    return totals;
}

TEST(DiskIOTotals, drives_are_told_apart_by_their_device_and_without_one_by_their_name) {
    const auto totals =
        totalsOf({drive("SSD", "disk0", {1, 2, 3, 4}), drive("SSD", "disk1", {10, 20, 30, 40}),
                  drive("disk1", std::nullopt, {100, 200, 300, 400})});
    ASSERT_EQ(totals.size(), 2U);
    EXPECT_EQ(totals[0].key, "disk0");
    EXPECT_EQ(totals[0].counters, (DiskIOCounters{1, 2, 3, 4}));
    EXPECT_EQ(totals[1].key, "disk1");
    EXPECT_EQ(totals[1].counters, (DiskIOCounters{110, 220, 330, 440}));
}

TEST(DiskIOTotals, hold_nothing_of_what_the_same_memory_held_before) {
    DiskIOTotals totals = totalsOf({drive("a", "a", {9, 9, 9, 9}), drive("b", "b", {9, 9, 9, 9})});
    const std::vector<DiskIOSnapshot> now{drive("c", "c", {1, 1, 1, 1})};
    addUp(now, totals);
    ASSERT_EQ(totals.size(), 1U);
    EXPECT_EQ(totals[0].key, "c");
    EXPECT_EQ(totals[0].counters, (DiskIOCounters{1, 1, 1, 1}));
}

TEST(DiskIORates, are_the_rise_of_all_drives_over_the_interval) {
    const auto rates = ratesBetween(
        totalsOf({drive("a", "a", {100, 10, 1, 2}), drive("b", "b", {0, 0, 0, 0})}),
        totalsOf({drive("b", "b", {50, 5, 5, 5}), drive("a", "a", {200, 30, 3, 4})}), 2.0);
    ASSERT_TRUE(rates);
    EXPECT_EQ(rates->bytesRead, 75.0);
    EXPECT_EQ(rates->bytesWritten, 12.5);
    EXPECT_EQ(rates->readOps, 3.5);
    EXPECT_EQ(rates->writeOps, 3.5);
}

TEST(DiskIORates, a_counter_that_fell_adds_nothing_and_leaves_the_others_counted) {
    const auto before = totalsOf({drive("a", "a", {1000, 10, 10, 10})});
    for (const std::uint64_t fallen : {std::uint64_t{0}, std::uint64_t{400}, std::uint64_t{999}}) {
        const auto rates =
            ratesBetween(before, totalsOf({drive("a", "a", {fallen, 20, 30, 40})}), 1.0);
        EXPECT_EQ(rates->bytesRead, 0.0);
        EXPECT_EQ(rates->bytesWritten, 10.0);
        EXPECT_EQ(rates->readOps, 20.0);
        EXPECT_EQ(rates->writeOps, 30.0);
    }
}

TEST(DiskIORates, a_drive_that_came_or_went_adds_nothing) {
    const auto rates = ratesBetween(
        totalsOf({drive("gone", "gone", {5, 5, 5, 5}), drive("a", "a", {5, 5, 5, 5})}),
        totalsOf({drive("new", "new", {9, 9, 9, 9}), drive("a", "a", {6, 6, 6, 6})}), 1.0);
    EXPECT_EQ(rates->bytesRead, 1.0);
    EXPECT_EQ(rates->writeOps, 1.0);
}

TEST(DiskIORates, a_counter_near_its_end_that_wraps_counts_as_one_that_started_over) {
    constexpr auto last = std::numeric_limits<std::uint64_t>::max();
    const auto rates =
        ratesBetween(totalsOf({drive("a", "a", {last - 1, 0, std::uint64_t{1} << 63, 0})}),
                     totalsOf({drive("a", "a", {5, 0, 0, std::uint64_t{1} << 63})}), 1.0);
    EXPECT_EQ(rates->bytesRead, 0.0);
    EXPECT_EQ(rates->readOps, 0.0);
    EXPECT_EQ(rates->writeOps, 9223372036854775808.0);
}

TEST(DiskIORates, are_absent_where_no_time_passed) {
    const auto totals = totalsOf({drive("a", "a", {1, 1, 1, 1})});
    for (const double interval : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_FALSE(ratesBetween(totals, totals, interval)) << interval;
}

TEST(DiskIORates, of_no_drives_are_zero) {
    const auto rates = ratesBetween({}, {}, 1.0);
    ASSERT_TRUE(rates);
    EXPECT_EQ(rates->bytesRead, 0.0);
    EXPECT_EQ(rates->writeOps, 0.0);
}

}  // namespace
}  // namespace vtx
