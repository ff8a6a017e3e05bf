// SPDX-License-Identifier: MIT
#include "core/HistoryCSVExporter.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace vtx::HistoryCSVExporter {
namespace {

constexpr std::string_view header =
    "timestamp,cpu_percent,p_core_percent,e_core_percent,gpu_percent,memory_percent,"
    "disk_read_bytes_s,disk_write_bytes_s,ane_percent\n";

constexpr double percent = 100.0;
constexpr double asItIs = 1.0;

struct Column {
    HistorySeries Series::* points;
    double factor;
};

constexpr std::array columns{
    Column{&Series::cpu, percent},      Column{&Series::pCore, percent},
    Column{&Series::eCore, percent},    Column{&Series::gpu, percent},
    Column{&Series::memory, percent},   Column{&Series::diskRead, asItIs},
    Column{&Series::diskWrite, asItIs}, Column{&Series::ane, percent},
};

constexpr std::size_t bytesAround = 64;
constexpr std::size_t bytesPerRow = 96;

using Cells = std::array<std::optional<double>, columns.size()>;

std::vector<Date> momentsOf(const Series& from) {
    std::vector<Date> moments;
    for (const Column& column : columns)
        std::ranges::transform(from.*column.points, std::back_inserter(moments),
                               &HistoryPoint::timestamp);
    std::ranges::sort(moments);
    moments.erase(std::ranges::unique(moments).begin(), moments.end());
    return moments;
}

std::vector<Cells> rowsOf(const Series& from, const std::vector<Date>& moments) {
    std::vector<Cells> rows(moments.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        for (const auto& [timestamp, value] : from.*columns[i].points) {
            const auto row = std::ranges::lower_bound(moments, timestamp) - moments.begin();
            rows[static_cast<std::size_t>(row)][i] = value * columns[i].factor;
        }
    }
    return rows;
}

void appendTime(std::string& text, Date moment) {
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::milliseconds>(moment) - day);
    fmt::format_to(std::back_inserter(text), "{:04}-{:02}-{:02}T{:02}:{:02}:{:02}.{:03}Z",
                   static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                   static_cast<unsigned>(date.day()), time.hours().count(), time.minutes().count(),
                   time.seconds().count(), time.subseconds().count());
}

}  // namespace

std::string makeCSV(const Series& from) {
    const auto moments = momentsOf(from);
    const auto rows = rowsOf(from, moments);
    std::string text;
    text.reserve(bytesAround + header.size() + bytesPerRow * rows.size());
    text += header;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        appendTime(text, moments[i]);
        for (const auto& cell : rows[i]) {
            text += ',';
            if (cell) fmt::format_to(std::back_inserter(text), "{:.3f}", *cell);
        }
        text += '\n';
    }
    return text;
}

}  // namespace vtx::HistoryCSVExporter
