// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "core/HistoryPoint.h"

/// Histories as one comma-separated text, for a file that the user keeps.
namespace vtx::HistoryCSVExporter {

/// The histories in the order of the columns. Fractions become percent, rates stay bytes a second.
struct Series {
    HistorySeries cpu;
    HistorySeries pCore;
    HistorySeries eCore;
    HistorySeries gpu;
    HistorySeries memory;
    HistorySeries diskRead;
    HistorySeries diskWrite;
    HistorySeries ane;
};

/// A header, then one line for each moment of any series, ascending. A series without a point at
/// exactly that moment leaves its cell empty; of several at the same moment the last one counts.
/// Times in UTC with milliseconds, numbers with a point and three digits, in every language.
[[nodiscard]] std::string makeCSV(const Series& from);

}  // namespace vtx::HistoryCSVExporter
