// SPDX-License-Identifier: MIT
#include "ui/surfaces/OverviewTab.h"

#include <gtest/gtest.h>

#include "SurfaceBench.h"
#include "ui/kit/Banner.h"
#include "ui/kit/HistoryChart.h"
#include "ui/kit/MetricRows.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/SegmentedControl.h"

namespace vtx {
namespace {

class OverviewTabTest : public testing::Test {
protected:
    QString said(const char* row) {
        auto* found = test::spokenAs(tab, row);
        return found ? found->text(QAccessible::Value) : QStringLiteral("no such row");
    }

    /// The charts in the order of the page, those that are going left out.
    QStringList charts() {
        QStringList titles;
        for (QWidget* child : tab.findChildren<QWidget*>())
            if (dynamic_cast<HistoryChart*>(child) && child->isVisibleTo(&tab))
                titles << child->accessibleName();
        return titles;
    }
    HistoryChart* firstChart() {
        for (QWidget* child : tab.findChildren<QWidget*>())
            if (auto* found = dynamic_cast<HistoryChart*>(child)) return found;
        return nullptr;
    }
    /// The names of the processes in the notice.
    QStringList entries() {
        QStringList names;
        auto* banner = QAccessible::queryAccessibleInterface(tab.findChild<Banner*>());
        for (int i = 0; i < banner->childCount(); ++i)
            if (const QString name = test::spokenName(*banner->child(i)); name.endsWith("GB"))
                names << name;
        return names;
    }
    /// A point of the processor's history at that second.
    void record(int second, double value) {
        bench.coordinator.cpuHistory.modify([second, value](HistorySeries& series) {
            series.push_back({Date{std::chrono::seconds{second}}, value});
        });
    }

    test::SurfaceBench bench;
    OverviewTab tab{bench.coordinator};
};

TEST_F(OverviewTabTest, before_the_first_reading_the_load_is_a_dash) {
    EXPECT_EQ(said("CPU"), QString::fromUtf8("—"));
}

TEST_F(OverviewTabTest, follows_readings_only_while_it_is_shown) {
    EXPECT_FALSE(bench.isCPUFollowed());
    bench.readCPU(0.34);
    test::show(tab);
    EXPECT_EQ(said("CPU"), "34 %");
    bench.readCPU(0.35);
    test::settle();
    EXPECT_EQ(said("CPU"), "35 %");
    tab.hide();
    EXPECT_FALSE(bench.isCPUFollowed());
    bench.readCPU(0.36);
    test::settle();
    EXPECT_EQ(said("CPU"), "35 %");
}

TEST_F(OverviewTabTest, a_row_for_each_kind_of_core_that_the_machine_has) {
    bench.readCPU(0.5);
    test::show(tab);
    EXPECT_EQ(said("P-cores (4)"), "50 %");
    EXPECT_EQ(test::spokenAs(tab, "E-cores (0)"), nullptr);
}

TEST_F(OverviewTabTest, a_reading_that_reads_the_same_repaints_nothing) {
    bench.readCPU(0.34);
    tab.resize(400, 600);
    test::show(tab);
    bench.readCPU(0.34);
    test::settle();
    MetricRows* list = nullptr;
    for (QWidget* child : tab.findChildren<QWidget*>())
        if (auto* found = dynamic_cast<MetricRows*>(child)) list = found;
    ASSERT_NE(list, nullptr);
    test::PaintRecorder recorder(*list);
    bench.readCPU(0.341);
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
    bench.readCPU(0.42);
    test::settle();
    EXPECT_EQ(recorder.painted.size(), 1U);
}

TEST_F(OverviewTabTest, follows_the_temperature) {
    test::show(tab);
    bench.coordinator.temperature.latest = TemperatureReading{62.6, std::nullopt, {}};
    EXPECT_NE(said("Temperature"), QString::fromUtf8("63 °C")) << "shown after the whole turn";
    test::settle();
    EXPECT_EQ(said("Temperature"), QString::fromUtf8("63 °C"));
}

TEST_F(OverviewTabTest, a_chart_for_each_metric_that_is_enabled) {
    test::show(tab);
    EXPECT_EQ(charts(), (QStringList{"CPU total", "P-cores", "E-cores", "GPU", "Memory used"}));
    bench.change([](auto& p) { p.graphsPCore = p.graphsMemory = false; });
    test::settle();
    EXPECT_EQ(charts(), (QStringList{"CPU total", "E-cores", "GPU"}));
    bench.coordinator.gpu.isAvailable = false;
    test::settle();
    EXPECT_EQ(charts(), (QStringList{"CPU total", "E-cores"}));
}

TEST_F(OverviewTabTest, without_charts_their_heading_and_picker_are_gone) {
    test::show(tab);
    EXPECT_NE(test::spokenAs(tab, "Last 60 s"), nullptr);
    EXPECT_NE(test::spokenAs(tab, "Graphs"), nullptr);
    bench.change([](auto& p) {
        p.graphsCPU = p.graphsPCore = p.graphsECore = p.graphsGPU = p.graphsMemory = false;
        p.graphsDisk = p.graphsPower = true;
    });
    test::settle();
    EXPECT_TRUE(charts().isEmpty());
    for (QWidget* child : tab.findChildren<QWidget*>()) {
        if (child->accessibleName() != "Graphs") continue;
        EXPECT_FALSE(child->isVisible());
    }
}

TEST_F(OverviewTabTest, the_heading_and_the_charts_follow_the_window) {
    record(0, 0.9);
    record(100, 0.2);
    test::show(tab);
    EXPECT_EQ(firstChart()->accessibleDescription(),
              "Last 60 s, 20 %, Min 20 %, Avg 20 %, Max 20 %");
    bench.change([](auto& p) { p.historyRange = DisplayPreferences::HistoryRange::fiveMinutes; });
    test::settle();
    EXPECT_NE(test::spokenAs(tab, "Last 5 m"), nullptr);
    EXPECT_EQ(firstChart()->accessibleDescription(),
              "Last 5 m, 20 %, Min 20 %, Avg 55 %, Max 90 %");
}

TEST_F(OverviewTabTest, a_new_point_repaints_its_chart_alone) {
    record(0, 0.4);
    tab.resize(360, 1200);
    test::show(tab);
    test::settle();
    std::vector<std::unique_ptr<test::PaintRecorder>> others;
    test::PaintRecorder own(*firstChart());
    for (QWidget* child : tab.findChildren<QWidget*>())
        if (dynamic_cast<HistoryChart*>(child) && child != firstChart())
            others.push_back(std::make_unique<test::PaintRecorder>(*child));
    record(1, 0.6);
    test::settle();
    EXPECT_EQ(own.painted.size(), 1U);
    for (const auto& other : others) EXPECT_TRUE(other->painted.empty());
}

TEST_F(OverviewTabTest, a_change_that_concerns_nothing_shown_repaints_nothing) {
    record(0, 0.4);
    bench.readCPU(0.34);
    tab.resize(360, 1200);
    test::show(tab);
    test::settle();
    std::vector<std::unique_ptr<test::PaintRecorder>> recorders;
    for (QWidget* child : tab.findChildren<QWidget*>())
        recorders.push_back(std::make_unique<test::PaintRecorder>(*child));
    bench.readCPU(0.34);
    bench.coordinator.cpuHistory.modify([](auto&) {});
    bench.change([](auto& p) { p.alertCPUEnabled = true; });
    bench.coordinator.memory.pressure = MemoryStats::Pressure::normal;
    test::settle();
    for (const auto& recorder : recorders) EXPECT_TRUE(recorder->painted.empty());
}

TEST_F(OverviewTabTest, a_hidden_overview_follows_nothing) {
    test::show(tab);
    EXPECT_TRUE(bench.coordinator.cpuHistory.hasSubscribers());
    tab.hide();
    const auto& c = bench.coordinator;
    EXPECT_FALSE(c.cpuHistory.hasSubscribers() || c.pCoreHistory.hasSubscribers() ||
                 c.eCoreHistory.hasSubscribers() || c.gpuHistory.hasSubscribers() ||
                 c.memoryHistory.hasSubscribers() || c.processes.processes.hasSubscribers() ||
                 c.gpu.isAvailable.hasSubscribers() || c.temperature.latest.hasSubscribers());
    record(1, 0.5);
    EXPECT_EQ(firstChart()->accessibleDescription(), "Collecting…");
}

TEST_F(OverviewTabTest, an_hour_of_half_seconds_is_drawn) {
    bench.coordinator.cpuHistory.modify([](HistorySeries& series) {
        for (int i = 0; i <= 7200; ++i)
            series.push_back({Date{std::chrono::milliseconds{i * 500}}, (i % 10) / 10.0});
    });
    bench.change([](auto& p) { p.historyRange = DisplayPreferences::HistoryRange::oneHour; });
    tab.resize(360, 1200);
    test::show(tab);
    EXPECT_FALSE(test::picture(tab, 1).isNull());
    EXPECT_EQ(firstChart()->accessibleDescription(), "Last 1 h, 0 %, Min 0 %, Avg 45 %, Max 90 %");
}

TEST_F(OverviewTabTest, a_notice_leads_while_memory_runs_short) {
    test::show(tab);
    auto* banner = tab.findChild<Banner*>();
    ASSERT_NE(banner, nullptr);
    EXPECT_FALSE(banner->isVisible());
    bench.coordinator.memory.pressure = MemoryStats::Pressure::critical;
    test::settle();
    EXPECT_TRUE(banner->isVisible());
    EXPECT_LT(banner->mapTo(&tab, QPoint()).y(), firstChart()->mapTo(&tab, QPoint()).y());
    bench.coordinator.memory.pressure = MemoryStats::Pressure::normal;
    test::settle();
    EXPECT_FALSE(banner->isVisible());
}

TEST_F(OverviewTabTest, a_clock_that_was_told_before_the_page_was_made_has_its_row) {
    CPUStats stats;
    stats.layout.pCoreCount = 4;
    stats.seenClocks.pCore = true;
    bench.coordinator.cpu.latest = stats;
    OverviewTab later{bench.coordinator};
    test::show(later);
    auto* clock = test::spokenAs(later, "P-Core Clock");
    ASSERT_NE(clock, nullptr);
    EXPECT_EQ(clock->text(QAccessible::Value), QString::fromUtf8("—"));
}

TEST_F(OverviewTabTest, the_notice_names_the_three_largest_processes_and_follows_them) {
    bench.runProcesses({1, 8, 3, 6, 2, 7, 4, 5});
    bench.coordinator.memory.pressure = MemoryStats::Pressure::warning;
    test::show(tab);
    EXPECT_EQ(entries(), (QStringList{"8 GB", "7 GB", "6 GB"}));
    bench.runProcesses({1, 9, 2, 3});
    test::settle();
    EXPECT_EQ(entries(), (QStringList{"9 GB", "3 GB", "2 GB"}));
}

TEST_F(OverviewTabTest, processes_are_followed_only_while_the_notice_is_shown) {
    const auto& followed = bench.coordinator.processes.processes;
    test::show(tab);
    EXPECT_FALSE(followed.hasSubscribers());
    bench.coordinator.memory.pressure = MemoryStats::Pressure::warning;
    test::settle();
    EXPECT_TRUE(followed.hasSubscribers());
    tab.hide();
    EXPECT_FALSE(followed.hasSubscribers());
    test::show(tab);
    EXPECT_TRUE(followed.hasSubscribers());
    bench.coordinator.memory.pressure = MemoryStats::Pressure::normal;
    test::settle();
    EXPECT_FALSE(followed.hasSubscribers());
}

TEST_F(OverviewTabTest, the_picker_ends_where_the_cards_end) {
    tab.resize(360, 800);
    test::show(tab);
    const auto end = [this](const QWidget& one) {
        return one.mapTo(&tab, QPoint(one.width(), 0)).x();
    };
    EXPECT_EQ(end(*tab.findChild<SegmentedControl*>()) - metrics::focusReach,
              end(*firstChart()->parentWidget()));
}

TEST_F(OverviewTabTest, has_a_heading) {
    auto* heading = test::spokenAs(tab, "Now");
    ASSERT_NE(heading, nullptr);
    EXPECT_EQ(heading->role(), QAccessible::Heading);
}

}  // namespace
}  // namespace vtx
