// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "core/DisplayPreferences.h"
#include "core/HistoryPoint.h"
#include "ui/models/ChartTints.h"

namespace vtx {

/// What the disks read and write as one chart of two series on one scale: reading an area under its
/// line, writing a line alone, so that they differ without colour. Values in MB/s, which are units
/// of 2^20 bytes.
struct DiskThroughputChart {
    std::string title;
    std::string readTitle;
    std::string writeTitle;
    /// Of the window that ends with the last point of the two, oldest first, in MB/s.
    HistorySeries read;
    HistorySeries write;
    SeriesTint readColor{SeriesRole::cyan};
    SeriesTint writeColor{SeriesRole::orange};
    /// The upper edge of the plot, in MB/s; the lower one is 0.
    double ceiling = 1.0;
    DisplayPreferences::HistoryRange historyRange = DisplayPreferences::HistoryRange::oneMinute;

    friend bool operator==(const DiskThroughputChart&, const DiskThroughputChart&) = default;
};

/// The chart of both histories, which are in bytes a second. Titles in the language in force.
[[nodiscard]] DiskThroughputChart describeDiskChart(const HistorySeries& bytesRead,
                                                    const HistorySeries& bytesWritten,
                                                    const DisplayPreferences& preferences);

/// The next of 1, 2 and 5 times a power of ten above the peak, and at least 1, so that the murmur
/// of an idle disk stays at the bottom. It depends on nothing else: it falls when the peak has.
[[nodiscard]] double throughputCeiling(double peakMBPerSecond);

/// The axis at the lower edge, the middle and the upper edge; the lowest names the unit.
[[nodiscard]] std::array<std::string, 3> axisMarks(const DiskThroughputChart& chart);

/// What the chart says to those who do not see it, after its title: the window, then of each series
/// the last value and the largest.
[[nodiscard]] std::string spokenValue(const DiskThroughputChart& chart);

}  // namespace vtx
