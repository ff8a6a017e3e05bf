// SPDX-License-Identifier: MIT
#include "ui/surfaces/OverviewTab.h"

#include <gtest/gtest.h>

#include "SurfaceBench.h"
#include "ui/kit/MetricRows.h"

namespace vtx {
namespace {

class OverviewTabTest : public testing::Test {
protected:
    QString said(const char* row) {
        auto* found = test::spokenAs(tab, row);
        return found ? found->text(QAccessible::Value) : QStringLiteral("no such row");
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
    EXPECT_EQ(said("CPU"), "35 %");
    tab.hide();
    EXPECT_FALSE(bench.isCPUFollowed());
    bench.readCPU(0.36);
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
    EXPECT_EQ(said("Temperature"), QString::fromUtf8("63 °C"));
}

TEST_F(OverviewTabTest, has_a_heading) {
    auto* heading = test::spokenAs(tab, "Now");
    ASSERT_NE(heading, nullptr);
    EXPECT_EQ(heading->role(), QAccessible::Heading);
}

}  // namespace
}  // namespace vtx
