// SPDX-License-Identifier: MIT
#include "ui/surfaces/SectionPage.h"

#include <gtest/gtest.h>

#include "SurfaceBench.h"

namespace vtx {
namespace {

/// A page that counts how often it shows anything.
class CountingPage final : public SectionPage {
public:
    explicit CountingPage(MetricsCoordinator& coordinator) : SectionPage(coordinator) {}

    int shown = 0;
    int drawnCharts = 0;
    std::size_t points = 0;

protected:
    void follow() override {
        observe(coordinator().cpu.latest);
        observe(coordinator().cpuHistory, Concern::charts);
    }
    void refresh() override { ++shown; }
    void refreshCharts() override {
        ++drawnCharts;
        points = drawn(coordinator().cpuHistory).size();
    }
};

class SectionPageTest : public testing::Test {
protected:
    test::SurfaceBench bench;
    CountingPage page{bench.coordinator};
};

TEST_F(SectionPageTest, is_current_as_soon_as_it_is_shown_and_once) {
    page.show();
    EXPECT_EQ(page.shown, 1);
    EXPECT_EQ(page.drawnCharts, 1);
    test::settle();
    EXPECT_EQ(page.shown, 1);
    EXPECT_EQ(page.drawnCharts, 1);
}

TEST_F(SectionPageTest, readings_leave_the_charts_and_histories_leave_the_values) {
    test::show(page);
    page.shown = page.drawnCharts = 0;
    bench.readCPU(0.1);
    test::settle();
    EXPECT_EQ(page.shown, 1);
    EXPECT_EQ(page.drawnCharts, 0);
    bench.coordinator.appendHistory({});
    test::settle();
    EXPECT_EQ(page.shown, 1);
    EXPECT_EQ(page.drawnCharts, 1);
    EXPECT_EQ(page.points, 1U);
    bench.change([](auto& preferences) { preferences.graphsCPU = false; });
    test::settle();
    EXPECT_EQ(page.shown, 2);
    EXPECT_EQ(page.drawnCharts, 2);
}

TEST_F(SectionPageTest, shows_several_changes_of_one_turn_once) {
    test::show(page);
    page.shown = 0;
    bench.readCPU(0.1);
    bench.readCPU(0.2);
    bench.change([](auto& preferences) { preferences.graphsCPU = false; });
    EXPECT_EQ(page.shown, 0);
    test::settle();
    EXPECT_EQ(page.shown, 1);
    bench.readCPU(0.3);
    test::settle();
    EXPECT_EQ(page.shown, 2);
}

TEST_F(SectionPageTest, follows_the_language) {
    test::show(page);
    page.shown = 0;
    Localization::shared().setPreference(Language::de);
    test::settle();
    EXPECT_EQ(page.shown, 1);
}

TEST_F(SectionPageTest, hidden_it_follows_nothing_and_shows_nothing) {
    EXPECT_FALSE(bench.isCPUFollowed());
    test::show(page);
    EXPECT_TRUE(bench.isCPUFollowed());
    page.shown = 0;
    bench.readCPU(0.1);
    page.hide();
    test::settle();
    EXPECT_FALSE(bench.isCPUFollowed());
    EXPECT_EQ(page.shown, 0) << "not even what came just before";
}

TEST_F(SectionPageTest, shown_again_it_is_current) {
    test::show(page);
    page.hide();
    page.shown = 0;
    test::show(page);
    EXPECT_EQ(page.shown, 1);
    bench.readCPU(0.1);
    test::settle();
    EXPECT_EQ(page.shown, 2);
}

}  // namespace
}  // namespace vtx
