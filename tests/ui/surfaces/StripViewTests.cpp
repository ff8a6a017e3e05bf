// SPDX-License-Identifier: MIT
#include "ui/surfaces/StripView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "SurfaceBench.h"

#include "ui/kit/Metrics.h"
#include "ui/kit/Type.h"
#include "ui/support/FixedTheme.h"

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

/// Every tile on and live, with a reading for each.
class FullStripTest : public StripViewTest {
protected:
    FullStripTest() {
        MetricsCoordinator& c = bench.coordinator;
        c.preferences.modify([](auto& p) { p.showGPU = p.showDiskIO = p.showFan = true; });
        readGPU(0.12);
        readMemory(58);
        readDisk(2.0);
        c.temperature.latest = TemperatureReading{63.0, std::nullopt, {}};
        readFan(2150);
        test::show(view);
        view.resize(view.sizeHint());
        test::settle();
    }

    void readGPU(double load) {
        GPUStats stats;
        stats.deviceUtilization = load;
        bench.coordinator.gpu.latest = stats;
    }
    void readMemory(std::uint64_t percent) {
        MemoryStats stats;
        stats.usedBytes = percent;
        stats.totalBytes = 100;
        bench.coordinator.memory.latest = stats;
    }
    void readDisk(double mebibytes) {
        DiskIOReading reading;
        reading.bytesReadPerSecond = reading.bytesWrittenPerSecond = mebibytes * 524288.0;
        bench.coordinator.diskIO.latest = reading;
    }
    void readTemperature(double celsius) {
        bench.coordinator.temperature.latest = TemperatureReading{celsius, std::nullopt, {}};
    }
    void readFan(int rpm) { bench.coordinator.fan.latest = FanStats{{{0, rpm, {}, {}, {}}}, {}}; }
    /// What is painted for one change; null for nothing, the whole for more than one event.
    template <class Change>
    QRect paintedFor(Change&& change) {
        test::PaintRecorder recorder(view);
        change();
        test::settle();
        if (recorder.painted.empty()) return {};
        return recorder.painted.size() == 1 ? recorder.painted[0].boundingRect() : view.rect();
    }
};

TEST_F(FullStripTest, a_tick_that_changes_no_label_paints_nothing_and_lays_nothing_out) {
    int widths = 0;
    QObject::connect(&view, &StripView::widthHintChanged, &view, [&] { ++widths; });
    const QRect painted = paintedFor([this] {
        bench.readCPU(0.3401);
        readGPU(0.1201);
        readMemory(58);
        readDisk(2.01);
        readTemperature(63.2);
        readFan(2150);
    });
    EXPECT_TRUE(painted.isNull());
    EXPECT_EQ(widths, 0);
}

TEST_F(FullStripTest, each_changed_label_paints_its_own_tile_alone) {
    const std::vector<QRect> painted{
        paintedFor([this] { bench.readCPU(0.35); }),   paintedFor([this] { readGPU(0.5); }),
        paintedFor([this] { readTemperature(64.0); }), paintedFor([this] { readMemory(59); }),
        paintedFor([this] { readDisk(3.0); }),         paintedFor([this] { readFan(2151); })};
    int right = 0;
    for (const QRect& tile : painted) {
        ASSERT_FALSE(tile.isNull());
        EXPECT_GE(tile.left(), right);
        right = tile.right();
    }
    EXPECT_LE(right, view.width());
}

TEST_F(FullStripTest, keeps_its_width_through_every_usual_figure) {
    const double width = view.contentWidth();
    for (int percent = 0; percent <= 100; ++percent) {
        bench.readCPU(percent / 100.0);
        readGPU(percent / 100.0);
        readMemory(static_cast<std::uint64_t>(percent));
        ASSERT_EQ(view.contentWidth(), width) << percent;
    }
    for (int celsius = 20; celsius <= 99; ++celsius) {
        readTemperature(celsius);
        readFan(celsius * 50);
        readDisk(celsius * 2.0);
        ASSERT_EQ(view.contentWidth(), width) << celsius;
    }
}

TEST_F(FullStripTest, a_three_digit_temperature_fits_its_space) {
    const double width = view.contentWidth();
    readTemperature(105.0);
    EXPECT_EQ(view.model().tiles[2].label, "105°C");
    EXPECT_EQ(view.contentWidth(), width);
}

TEST_F(FullStripTest, a_level_narrower_than_critical_keeps_the_width_and_a_wider_one_has_its_own) {
    const double width = view.contentWidth();
    bench.coordinator.temperature.latest = std::nullopt;
    const auto widthAt = [this](ThermalStats::Level level) {
        bench.coordinator.thermal.latest = ThermalStats{level, {}};
        return view.contentWidth();
    };
    EXPECT_EQ(widthAt(ThermalStats::Level::critical), width);
    EXPECT_EQ(widthAt(ThermalStats::Level::fair), width);
    const double nominal = std::ceil(tabularWidth("Nominal", TextRole::strip));
    const double critical = std::ceil(tabularWidth("Critical", TextRole::strip));
    EXPECT_EQ(widthAt(ThermalStats::Level::nominal), width + std::max(0.0, nominal - critical));
}

TEST_F(FullStripTest, a_rate_beyond_its_space_widens_the_strip_and_moves_what_follows) {
    const double width = view.contentWidth();
    const QRect painted = paintedFor([this] { readDisk(10'000.0); });
    EXPECT_GT(view.contentWidth(), width);
    EXPECT_EQ(view.model().tiles[4].label, "10000M");
    EXPECT_EQ(painted, view.rect()) << "the fan has moved, though its label is the same";
}

TEST_F(FullStripTest, a_label_that_goes_leaves_nothing_behind) {
    bench.change([](auto& p) { p.menuBarLiveCPU = false; });
    test::settle();
    const QImage once = test::picture(view, 2.0);
    StripView fresh(bench.coordinator);
    fresh.resize(view.size());
    EXPECT_EQ(once, test::picture(fresh, 2.0));
    EXPECT_EQ(paintedFor([this] { bench.change([](auto& p) { p.menuBarLiveCPU = true; }); }),
              view.rect());
}

TEST_F(FullStripTest, a_gpu_that_is_found_later_gets_its_tile_and_its_space) {
    bench.coordinator.gpu.isAvailable = false;
    const double without = view.contentWidth();
    EXPECT_EQ(view.model().tiles.size(), 5U);
    int widths = 0;
    QObject::connect(&view, &StripView::widthHintChanged, &view, [&] { ++widths; });
    bench.coordinator.gpu.isAvailable = true;
    EXPECT_EQ(view.model().tiles.size(), 6U);
    EXPECT_GT(view.contentWidth(), without);
    EXPECT_EQ(widths, 1);
}

TEST_F(FullStripTest, compact_mode_is_as_wide_as_its_one_tile_or_its_padding) {
    bench.change([](auto& p) { p.menuBarCompact = true; });
    bench.coordinator.criticalMetric = std::string("memory");
    ASSERT_EQ(view.model().tiles.size(), 1U);
    EXPECT_EQ(view.model().tiles[0].label, "58%");
    bench.change([](auto& p) { p.showMemory = false; });
    EXPECT_TRUE(view.model().tiles.empty());
    EXPECT_EQ(view.contentWidth(), 2 * metrics::stripInset);
}

TEST_F(FullStripTest, stands_from_left_to_right_in_every_language) {
    const QImage usual = test::picture(view, 2.0);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    test::settle();
    const QImage mirrored = test::picture(view, 2.0);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(usual, mirrored);
}

TEST_F(FullStripTest, is_drawn_in_the_primary_colour_of_the_appearance_alone) {
    for (const auto appearance : {Appearance::light, Appearance::dark}) {
        const test::FixedTheme theme(appearance);
        test::settle();
        const QColor color = tokenColor(ColorToken::text1, appearance);
        const QImage picture = test::picture(view, 2.0);
        int drawn = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                if (pixel.alpha() < 255) continue;
                ++drawn;
                ASSERT_EQ(pixel.rgb(), color.rgb()) << x << "," << y;
            }
        }
        EXPECT_GT(drawn, 100);
    }
}

TEST_F(StripViewTest, takes_no_clicks_itself) {
    EXPECT_TRUE(view.testAttribute(Qt::WA_TransparentForMouseEvents));
}

}  // namespace
}  // namespace vtx
