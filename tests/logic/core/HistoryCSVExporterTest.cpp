// SPDX-License-Identifier: MIT
#include "core/HistoryCSVExporter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace vtx {
namespace {

using HistoryCSVExporter::makeCSV;
using HistoryCSVExporter::Series;

const std::string header =
    "timestamp,cpu_percent,p_core_percent,e_core_percent,gpu_percent,memory_percent,"
    "disk_read_bytes_s,disk_write_bytes_s,ane_percent\n";

// 2026-01-31 12:00:00.123 UTC
constexpr Date moment{std::chrono::milliseconds{1'769'860'800'123}};

Date later(int milliseconds) { return moment + std::chrono::milliseconds(milliseconds); }

std::string rowsOf(const Series& series) {
    const std::string text = makeCSV(series);
    EXPECT_TRUE(text.starts_with(header));
    return text.substr(std::min(header.size(), text.size()));
}

TEST(HistoryCSVExporter, without_points_the_header_stands_alone) { EXPECT_EQ(makeCSV({}), header); }

TEST(HistoryCSVExporter, each_series_has_its_column_and_fractions_become_percent) {
    const Series all{.cpu = {{moment, 0.1234}},
                     .pCore = {{moment, 0.2}},
                     .eCore = {{moment, 0.3}},
                     .gpu = {{moment, 0.4}},
                     .memory = {{moment, 1.0}},
                     .diskRead = {{moment, 1'048'576.5}},
                     .diskWrite = {{moment, 0.0}},
                     .ane = {{moment, 0.0005}}};
    EXPECT_EQ(rowsOf(all),
              "2026-01-31T12:00:00.123Z,12.340,20.000,30.000,40.000,100.000,1048576.500,0.000,"
              "0.050\n");
}

TEST(HistoryCSVExporter, a_series_without_a_point_at_that_moment_leaves_its_cell_empty) {
    const HistorySeries half{{moment, 0.5}};
    const Series noRates{.cpu = half,
                         .pCore = half,
                         .eCore = half,
                         .gpu = half,
                         .memory = half,
                         .diskRead = {},
                         .diskWrite = {},
                         .ane = half};
    EXPECT_EQ(rowsOf(noRates),
              "2026-01-31T12:00:00.123Z,50.000,50.000,50.000,50.000,50.000,,,50.000\n");
}

TEST(HistoryCSVExporter, there_is_one_row_for_each_moment_of_any_series_ascending) {
    Series series;
    series.cpu = {{later(2000), 0.2}, {moment, 0.1}};
    series.ane = {{later(1000), 0.9}, {later(2000), 0.8}};
    EXPECT_EQ(rowsOf(series),
              "2026-01-31T12:00:00.123Z,10.000,,,,,,,\n"
              "2026-01-31T12:00:01.123Z,,,,,,,,90.000\n"
              "2026-01-31T12:00:02.123Z,20.000,,,,,,,80.000\n");
}

TEST(HistoryCSVExporter, moments_are_told_apart_exactly_even_where_their_text_is_the_same) {
    Series series;
    series.cpu = {{moment, 0.1}};
    series.gpu = {{moment + std::chrono::microseconds(1), 0.2}};
    EXPECT_EQ(rowsOf(series),
              "2026-01-31T12:00:00.123Z,10.000,,,,,,,\n"
              "2026-01-31T12:00:00.123Z,,,,20.000,,,,\n");
}

TEST(HistoryCSVExporter, of_several_points_at_one_moment_the_last_one_counts) {
    Series series;
    series.cpu = {{moment, 0.1}, {moment, 0.2}};
    EXPECT_EQ(rowsOf(series), "2026-01-31T12:00:00.123Z,20.000,,,,,,,\n");
}

TEST(HistoryCSVExporter, a_moment_is_written_in_full_with_milliseconds) {
    const auto timeOf = [](Date date) {
        Series series;
        series.cpu = {{date, 0.0}};
        return rowsOf(series).substr(0, 24);
    };
    EXPECT_EQ(timeOf(Date{}), "1970-01-01T00:00:00.000Z");
    EXPECT_EQ(timeOf(Date{std::chrono::milliseconds{-1}}), "1969-12-31T23:59:59.999Z");
    EXPECT_EQ(timeOf(Date{std::chrono::microseconds{951'827'696'007'999}}),
              "2000-02-29T12:34:56.007Z");
}

TEST(HistoryCSVExporter, every_row_has_nine_fields_and_ends_with_a_line_feed) {
    Series series;
    for (int i = 0; i < 100; ++i) {
        series.cpu.push_back({later(i), 0.5});
        if (i % 3 == 0) series.diskWrite.push_back({later(i), 1e9});
    }
    const std::string text = makeCSV(series);
    EXPECT_EQ(std::ranges::count(text, '\n'), 101);
    EXPECT_EQ(std::ranges::count(text, ','), 8 * 101);
    EXPECT_TRUE(text.ends_with('\n'));
    EXPECT_EQ(text.find_first_of("\r\"; "), std::string::npos);
}

}  // namespace
}  // namespace vtx
