// SPDX-License-Identifier: MIT
#include "ui/models/OverviewModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vtx {
namespace {

using testing::ElementsAre;

CoreLayout eightAndFour() {
    CoreLayout layout;
    layout.pCoreCount = 8;
    layout.eCoreCount = 4;
    return layout;
}

CPUStats readingOf(double total, double p, double e) {
    CPUStats stats;
    stats.totalUsage = total;
    stats.pCoreUsage = p;
    stats.eCoreUsage = e;
    stats.layout = eightAndFour();
    return stats;
}

TEST(OverviewModel, before_any_reading_the_rows_stand_with_dashes) {
    EXPECT_THAT(describeOverview({eightAndFour(), std::nullopt}).liveRows,
                ElementsAre(MetricRowModel{"cpu", "CPU", "—", Tint::primary},
                            MetricRowModel{"p.circle", "P-cores (8)", "—", Tint::primary},
                            MetricRowModel{"e.circle", "E-cores (4)", "—", Tint::primary}));
}

TEST(OverviewModel, rows_show_the_loads_with_their_tints) {
    EXPECT_THAT(describeOverview({eightAndFour(), readingOf(0.97, 0.88, 0.74)}).liveRows,
                ElementsAre(MetricRowModel{"cpu", "CPU", "97 %", Tint::red},
                            MetricRowModel{"p.circle", "P-cores (8)", "88 %", Tint::orange},
                            MetricRowModel{"e.circle", "E-cores (4)", "74 %", Tint::yellow}));
}

TEST(OverviewModel, a_cluster_without_cores_has_no_row) {
    auto reading = readingOf(0.1, 0.1, 0.0);
    reading.layout.eCoreCount = 0;
    const auto rows = describeOverview({reading.layout, reading}).liveRows;
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1].title, "P-cores (8)");
}

TEST(OverviewModel, clocks_have_rows_where_they_are_measured) {
    auto reading = readingOf(0.1, 0.1, 0.1);
    reading.pCoreCurrentFrequencyMHz = 3228;
    const auto rows = describeOverview({eightAndFour(), reading}).liveRows;
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[3], (MetricRowModel{"waveform.path.ecg", "P-Core Clock", "3.23 GHz"}));
}

TEST(OverviewModel, a_machine_that_tells_no_layout_still_has_its_cpu_row) {
    EXPECT_THAT(describeOverview({}).liveRows,
                ElementsAre(MetricRowModel{"cpu", "CPU", "—", Tint::primary}));
}

}  // namespace
}  // namespace vtx
