// SPDX-License-Identifier: MIT
#include "ui/surfaces/StripView.h"

#include <gtest/gtest.h>

#include "SurfaceBench.h"
#include "ui/kit/Metrics.h"

namespace vtx {
namespace {

StripModel model(std::string cpu, std::string memory = "50%", std::string summary = "said") {
    StripModel made;
    made.tiles = {{"cpu", "cpu", std::move(cpu), "100%"},
                  {"memory", "memorychip.fill", std::move(memory), "100%"}};
    made.summary = std::move(summary);
    return made;
}

class StripViewTest : public testing::Test {
protected:
    StripViewTest() {
        bench.readCPU(0.34);
        view.display(model("34%"));
        view.resize(view.sizeHint());
    }

    void show() {
        test::show(view);
        view.display(model("34%"));
        test::settle();
    }

    test::SurfaceBench bench;
    StripView view{bench.coordinator};
};

TEST_F(StripViewTest, a_reading_that_changes_no_text_repaints_nothing) {
    test::show(view);
    test::PaintRecorder recorder(view);
    bench.readCPU(0.341);
    bench.readCPU(0.339);
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
}

TEST_F(StripViewTest, a_changed_label_repaints_its_tile_alone) {
    show();
    test::PaintRecorder recorder(view);
    view.display(model("34%", "51%"));
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    const QRect painted = recorder.painted[0].boundingRect();
    const double cpuTile = metrics::stripInset + metrics::stripSymbol + metrics::stripSymbolGap;
    EXPECT_GT(painted.left(), cpuTile) << "the first tile stays";
    EXPECT_LE(painted.right(), view.width());
    EXPECT_LT(painted.width(), view.width() / 2);
}

TEST_F(StripViewTest, a_reading_that_changes_the_text_repaints_within_the_first_tile) {
    test::show(view);
    const double wholeWidth = view.contentWidth();
    test::PaintRecorder recorder(view);
    bench.readCPU(0.78);
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_LT(recorder.painted[0].boundingRect().right(), wholeWidth / 2);
}

TEST_F(StripViewTest, another_set_of_tiles_repaints_everything) {
    show();
    test::PaintRecorder recorder(view);
    StripModel fewer = model("34%");
    fewer.tiles.pop_back();
    view.display(fewer);
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0].boundingRect(), view.rect());
}

TEST_F(StripViewTest, numbers_within_the_reserved_space_keep_the_width) {
    int changes = 0;
    QObject::connect(&view, &StripView::widthHintChanged, &view, [&] { ++changes; });
    const double before = view.contentWidth();
    view.display(model("7%", "100%"));
    EXPECT_EQ(view.contentWidth(), before);
    EXPECT_EQ(changes, 0);
    view.display(model("1234567%"));
    EXPECT_GT(view.contentWidth(), before);
    EXPECT_EQ(changes, 1);
}

TEST_F(StripViewTest, a_new_summary_is_told_once_and_the_same_not_at_all) {
    int told = 0;
    QObject::connect(&view, &StripView::summaryChanged, &view, [&] { ++told; });
    view.display(model("34%", "50%", "CPU 34 percent"));
    view.display(model("35%", "50%", "CPU 34 percent"));
    EXPECT_EQ(told, 1);
    EXPECT_EQ(view.spokenSummary(), "CPU 34 percent");
}

TEST_F(StripViewTest, follows_readings_only_while_it_is_shown) {
    const bool before = bench.isCPUFollowed();
    EXPECT_FALSE(before);
    test::show(view);
    EXPECT_TRUE(bench.isCPUFollowed());
    view.hide();
    EXPECT_FALSE(bench.isCPUFollowed());
    EXPECT_FALSE(bench.coordinator.criticalMetric.hasSubscribers());
    bench.readCPU(0.9);
    EXPECT_TRUE(view.spokenSummary().starts_with("CPU 34 percent"));
    test::show(view);
    EXPECT_TRUE(view.spokenSummary().starts_with("CPU 90 percent"));
}

TEST_F(StripViewTest, shows_temperature_and_fans_of_the_coordinator) {
    bench.coordinator.preferences.modify([](auto& p) {
        p.showThermal = p.menuBarLiveTemp = p.showFan = p.menuBarLiveFan = true;
        p.menuBarOrder = {"thermal", "fan"};
    });
    test::show(view);
    bench.coordinator.temperature.latest = TemperatureReading{62.6, std::nullopt, {}};
    bench.coordinator.fan.latest = FanStats{{{0, 2150, {}, {}, {}}}, {}};
    ASSERT_EQ(view.model().tiles.size(), 2U);
    EXPECT_EQ(view.model().tiles[0].label, "63°C");
    EXPECT_EQ(view.model().tiles[1].label, "2150");
}

TEST_F(StripViewTest, keeps_its_width_through_every_percentage_and_temperature) {
    bench.coordinator.preferences.modify([](auto& p) {
        p.showThermal = p.menuBarLiveTemp = p.showMemory = p.menuBarLiveMemory = true;
    });
    test::show(view);
    bench.readCPU(0.0);
    const double width = view.contentWidth();
    for (int percent = 0; percent <= 100; ++percent) {
        bench.readCPU(percent / 100.0);
        bench.coordinator.temperature.latest =
            TemperatureReading{20.0 + 79.0 * percent / 100.0, std::nullopt, {}};
        ASSERT_EQ(view.contentWidth(), width) << percent;
    }
}

TEST_F(StripViewTest, takes_no_clicks_itself) {
    EXPECT_TRUE(view.testAttribute(Qt::WA_TransparentForMouseEvents));
}

}  // namespace
}  // namespace vtx
