// SPDX-License-Identifier: MIT
#include "processes/ObservationWindow.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace vtx {
namespace {

constexpr double window = 1800.0;
constexpr double busy = 0.5;
constexpr double idle = 0.01;

Instant at(double second) { return Instant(seconds(second)); }

/// The rule as it is told, with nothing remembered between two questions.
struct Reference {
    std::vector<ObservationWindow::Observation> all;

    void add(const ObservationWindow::Observation& newest) {
        all.push_back(newest);
        std::erase_if(all, [&newest](const auto& one) {
            return toSeconds(newest.moment - one.moment) > window;
        });
    }
    [[nodiscard]] double activeSeconds(double threshold) const {
        std::vector<Instant> active;
        for (const auto& one : all)
            if (one.cpuPercent >= threshold) active.push_back(one.moment);
        double total = 0.0;
        for (std::size_t i = 1; i < active.size(); ++i) {
            const double gap = toSeconds(active[i] - active[i - 1]);
            if (gap < 30.0) total += gap;
        }
        return total;
    }
};

TEST(ObservationWindow, without_observations_nothing_is_known) {
    ObservationWindow observed;
    EXPECT_EQ(observed.beginning(), std::nullopt);
    EXPECT_EQ(observed.activeSeconds(0.1), 0.0);
    EXPECT_EQ(observed.shares(0.1).average, 0.0);
    EXPECT_EQ(observed.shares(0.1).peak, 0.0);
}

TEST(ObservationWindow, activity_that_leaves_takes_its_time_with_it) {
    ObservationWindow observed;
    for (const double second : {0.0, 5.0, 10.0}) observed.add({at(second), busy}, window);
    EXPECT_EQ(observed.activeSeconds(0.15), 10.0);
    observed.add({at(1805), idle}, window);
    EXPECT_EQ(observed.activeSeconds(0.15), 5.0);
    observed.add({at(1806), idle}, window);
    EXPECT_EQ(observed.activeSeconds(0.15), 0.0);
    EXPECT_EQ(observed.beginning(), at(10));
    observed.add({at(1811), idle}, window);
    observed.add({at(1812), busy}, window);
    observed.add({at(1820), busy}, window);
    EXPECT_EQ(observed.activeSeconds(0.15), 8.0) << "nothing reaches back to what has gone";
}

TEST(ObservationWindow, another_threshold_counts_what_was_observed_before) {
    ObservationWindow observed;
    for (const double second : {0.0, 5.0, 10.0}) observed.add({at(second), 0.2}, window);
    observed.add({at(15), 0.9}, window);
    observed.add({at(20), 0.9}, window);
    EXPECT_EQ(observed.activeSeconds(0.15), 20.0);
    EXPECT_EQ(observed.activeSeconds(0.5), 5.0);
    EXPECT_EQ(observed.activeSeconds(0.15), 20.0);
    EXPECT_EQ(observed.shares(0.5).average, 0.9);
}

// Whatever the load, the pauses and the thresholds do.
TEST(ObservationWindow, always_tells_what_counting_everything_anew_tells) {
    std::mt19937 numbers(7);
    const auto below = [&numbers](unsigned limit) {
        return static_cast<double>(numbers() % limit);
    };
    const auto chance = [&below](unsigned oneIn) { return below(oneIn) == 0.0; };
    for (int life = 0; life < 15; ++life) {
        ObservationWindow observed;
        Reference reference;
        double now = 1e6;
        double threshold = 0.15;
        for (int round = 0; round < 600; ++round) {
            now += chance(50) ? below(2000) : 0.5 + below(100) / 10.0;
            if (chance(100)) threshold = below(10) / 10.0;
            const ObservationWindow::Observation newest{at(now), below(10) / 10.0};
            observed.add(newest, window);
            reference.add(newest);
            if (chance(3)) continue;  // nobody asks every time
            ASSERT_NEAR(observed.activeSeconds(threshold), reference.activeSeconds(threshold), 1e-6)
                << "life " << life << ", round " << round;
            ASSERT_EQ(observed.beginning(), reference.all.front().moment);
        }
    }
}

TEST(ObservationWindow, what_leaves_before_anybody_asks_is_not_counted) {
    ObservationWindow observed;
    for (const double second : {0.0, 5.0, 1804.0, 1810.0}) observed.add({at(second), busy}, window);
    EXPECT_EQ(observed.beginning(), at(1804));
    EXPECT_EQ(observed.activeSeconds(0.15), 6.0);
}

TEST(ObservationWindow, a_window_of_less_than_nothing_holds_nothing) {
    ObservationWindow observed;
    observed.add({at(0), busy}, -1.0);
    EXPECT_EQ(observed.beginning(), std::nullopt);
    EXPECT_EQ(observed.activeSeconds(0.15), 0.0);
}

}  // namespace
}  // namespace vtx
