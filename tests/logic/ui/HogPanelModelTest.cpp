// SPDX-License-Identifier: MIT
#include "ui/models/HogPanelModel.h"

#include <gtest/gtest.h>

#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

HogReport reportOf(double activeSeconds, double peak, double average = 0.24) {
    HogReport report;
    report.pid = 200;
    report.name = "node";
    report.activeSeconds = activeSeconds;
    report.peakCPU = peak;
    report.averageCPU = average;
    return report;
}

struct Severe {
    double activeSeconds;
    double peak;
    HogSeverity severity;
};
class HogSeverities : public testing::TestWithParam<Severe> {};

TEST_P(HogSeverities, follow_from_the_peak_and_then_from_the_time) {
    EXPECT_EQ(severityOf(reportOf(GetParam().activeSeconds, GetParam().peak)), GetParam().severity);
}

INSTANTIATE_TEST_SUITE_P(
    Each, HogSeverities,
    testing::Values(Severe{10, 2.5, HogSeverity::severe}, Severe{10, 2.0, HogSeverity::severe},
                    Severe{10, 1.999, HogSeverity::slight}, Severe{900, 0.2, HogSeverity::severe},
                    Severe{899.9, 0.2, HogSeverity::notable},
                    Severe{300, 0.2, HogSeverity::notable}, Severe{299.9, 0.2, HogSeverity::slight},
                    Severe{0, 0, HogSeverity::slight}));

TEST(HogPanel, each_severity_has_a_sign_of_its_own) {
    EXPECT_EQ(symbolOf(HogSeverity::severe), "exclamationmark.triangle.fill");
    EXPECT_EQ(symbolOf(HogSeverity::notable), "exclamationmark.circle");
    EXPECT_EQ(symbolOf(HogSeverity::slight), "circle");
}

TEST(HogPanel, minutes_and_peak_are_cut_to_whole_numbers) {
    EXPECT_EQ(hogSubtitle(reportOf(1319.9, 2.389)), "21 min · peak 238%");
    EXPECT_EQ(hogSubtitle(reportOf(59.9, 0.009)), "0 min · peak 0%");
}

TEST(HogPanel, a_report_reads_as_a_row_and_rows_keep_their_order) {
    AppBench bench;
    const auto panel = describeHogPanel(true, {reportOf(480, 0.61), reportOf(240, 0.33, 0.166)});
    EXPECT_EQ(panel.title, "Background hogs");
    EXPECT_EQ(panel.count, "2");
    EXPECT_EQ(panel.hint, "");
    EXPECT_EQ(panel.rows,
              (std::vector<HogRowModel>{{HogSeverity::notable, "node", "8 min · peak 61%", "24%"},
                                        {HogSeverity::slight, "node", "4 min · peak 33%", "17%"}}));
}

TEST(HogPanel, a_process_without_a_name_is_a_dash) {
    AppBench bench;
    HogReport nameless = reportOf(480, 0.61);
    nameless.name.clear();
    EXPECT_EQ(describeHogPanel(true, {nameless}).rows.at(0).name, "—");
}

TEST(HogPanel, without_reports_it_says_that_there_are_none) {
    AppBench bench;
    const auto panel = describeHogPanel(true, {});
    EXPECT_EQ(panel.hint, "Nothing has crossed the threshold yet.");
    EXPECT_EQ(panel.count, "");
}

TEST(HogPanel, of_a_detector_that_does_not_run_yet_it_shows_the_hint_alone) {
    AppBench bench;
    const auto panel = describeHogPanel(false, {reportOf(480, 0.61)});
    EXPECT_EQ(panel.hint, "Enable the detector in Settings to see background hogs.");
    EXPECT_TRUE(panel.rows.empty());
    EXPECT_EQ(panel.count, "");
}

TEST(HogPanel, speaks_the_language_in_force) {
    AppBench bench;
    Localization::shared().setPreference(Language::de);
    EXPECT_EQ(describeHogPanel(true, {}).title, "Hintergrund-Hogs");
}

}  // namespace
}  // namespace vtx
