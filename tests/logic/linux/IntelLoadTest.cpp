// SPDX-License-Identifier: MIT
#include "platform/linux/IntelLoad.h"

#include <gtest/gtest.h>

#include <functional>

#include "linux/TemporaryTree.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using Percent = GraphicsLoad::Percent;
using Names = std::vector<std::string>;

/// Two parts of one device.
struct IntelGraphicsLoad : testing::Test {
    void idle(std::string_view render, std::string_view media) const {
        tree.write("/render", render);
        tree.write("/media", media);
    }
    [[nodiscard]] Percent after(Duration span) {
        clock.advanceBy(span);
        return load.next();
    }
    /// The parts have idled 1000 ms and 5000 ms when the first interval begins.
    void begin() {
        idle("1000\n", "5000\n");
        EXPECT_EQ(load.next(), std::nullopt);
    }

    TemporaryTree tree;
    ManualClock clock;
    std::function<void(Duration)> whilePausing = [](Duration) {};
    IntelLoad load{clock,
                   [this](Duration span) {
                       clock.advanceBy(span);
                       whilePausing(span);
                   },
                   {tree.path() + "/render", tree.path() + "/media"}};
};

TEST_F(IntelGraphicsLoad, is_what_idling_left_of_the_busiest_part) {
    begin();
    idle("1750\n", "6000\n");
    EXPECT_EQ(after(seconds(1)), 25);
    idle("2750\n", "6400\n");
    EXPECT_EQ(after(seconds(1)), 60);
    idle("2750\n", "7400\n");
    EXPECT_EQ(after(seconds(1)), 100);
}

TEST_F(IntelGraphicsLoad, is_measured_over_a_tenth_of_a_second_at_first) {
    idle("1000\n", "5000\n");
    whilePausing = [this](Duration span) {
        EXPECT_EQ(span, milliseconds(100));
        idle("1060\n", "5100\n");
    };
    EXPECT_EQ(load.first(), 40);
}

TEST_F(IntelGraphicsLoad, is_zero_where_jitter_idles_longer_than_the_span) {
    begin();
    idle("2010\n", "6010\n");
    EXPECT_EQ(after(seconds(1)), 0);
}

TEST_F(IntelGraphicsLoad, is_the_same_for_whoever_asks_again_at_once) {
    begin();
    idle("1500\n", "6000\n");
    EXPECT_EQ(after(seconds(1)), 50);
    idle("9999999\n", "junk\n");
    EXPECT_EQ(load.next(), 50);
    EXPECT_EQ(after(milliseconds(49)), 50);
}

TEST_F(IntelGraphicsLoad, is_absent_for_an_interval_in_which_the_counters_started_over) {
    begin();
    idle("10\n", "20\n");
    EXPECT_EQ(after(seconds(1)), std::nullopt);
    idle("810\n", "1020\n");
    EXPECT_EQ(after(seconds(1)), 20);
}

TEST_F(IntelGraphicsLoad, goes_by_the_parts_that_can_be_read) {
    begin();
    for (const std::string text :
         {"", "\n", "junk\n", "-5\n", "12.5\n", "99999999999999999999\n"}) {
        idle("1000\n", "5000\n");
        (void)after(seconds(1));
        idle(text, "5700\n");
        EXPECT_EQ(after(seconds(1)), 30) << text;
        idle(text, std::string(100'000, '1'));
        EXPECT_EQ(after(seconds(1)), std::nullopt) << text;
    }
    tree.remove("/render");
    tree.remove("/media");
    EXPECT_EQ(after(seconds(1)), std::nullopt);
}

TEST_F(IntelGraphicsLoad, begins_anew_after_it_was_let_go) {
    begin();
    load.letGo();
    idle("1000\n", "5000\n");
    EXPECT_EQ(after(seconds(9)), std::nullopt);
    idle("1900\n", "6000\n");
    EXPECT_EQ(after(seconds(1)), 10);
}

TEST(IntelGraphicsBusy, between_two_counts) {
    EXPECT_EQ(busyBetween(0, 0, seconds(1)), 100);
    EXPECT_EQ(busyBetween(100, 1100, seconds(1)), 0);
    EXPECT_EQ(busyBetween(100, 600, seconds(1)), 50);
    EXPECT_EQ(busyBetween(100, 1096, seconds(1)), 0);
    EXPECT_EQ(busyBetween(0, 0, Duration(0)), std::nullopt);
    EXPECT_EQ(busyBetween(0, ~std::uint64_t{0}, seconds(1)), std::nullopt);
    EXPECT_EQ(busyBetween(~std::uint64_t{0}, 0, seconds(1)), 100);
}

TEST(IntelGraphicsBusy, a_counter_of_32_bits_that_wrapped_counts_its_true_difference) {
    EXPECT_EQ(busyBetween(4'294'967'000, 204, seconds(1)), 50);
}

TEST(IntelGraphicsCounters, are_those_of_every_part_or_the_older_one_of_the_whole_card) {
    const LinuxRoot laptop(fixture("intel-nvidia-laptop-6.8"));
    const std::string card = "/sys/class/drm/card1";
    const std::string device = "/sys/bus/pci/devices/0000:00:02.0";
    EXPECT_EQ(IntelLoad::countersOf(laptop, card, device),
              (Names{card + "/gt/gt0/rc6_residency_ms", card + "/gt/gt1/rc6_residency_ms"}));
    TemporaryTree old;
    old.write(card + "/power/rc6_residency_ms", "1\n");
    EXPECT_EQ(IntelLoad::countersOf(LinuxRoot(old.path()), card, device),
              Names{card + "/power/rc6_residency_ms"});
}

TEST(IntelGraphicsCounters, are_those_of_the_tiles_for_the_newer_driver) {
    const LinuxRoot laptop(fixture("intel-xe-two-gpus-6.12"));
    const std::string device = "/sys/bus/pci/devices/0000:03:00.0";
    EXPECT_EQ(IntelLoad::countersOf(laptop, "/sys/class/drm/card0", device),
              (Names{device + "/tile0/gt0/gtidle/idle_residency_ms",
                     device + "/tile0/gt1/gtidle/idle_residency_ms"}));
}

TEST(IntelGraphicsCounters, of_parts_that_are_kept_from_idling_count_nothing) {
    TemporaryTree tree;
    for (const auto* part : {"/card/gt/gt0", "/card/gt/gt1", "/card/power"}) {
        tree.write(std::string(part) + "/rc6_residency_ms", "0\n");
        tree.write(std::string(part) + "/rc6_enable", "0\n");
    }
    const LinuxRoot root(tree.path());
    EXPECT_EQ(IntelLoad::countersOf(root, "/card", "/device"), Names{});
    tree.write("/card/gt/gt1/rc6_enable", "1\n");
    tree.write("/card/gt/other/rc6_residency_ms", "0\n");
    EXPECT_EQ(IntelLoad::countersOf(root, "/card", "/device"),
              Names{"/card/gt/gt1/rc6_residency_ms"});
}

}  // namespace
}  // namespace vtx::test
