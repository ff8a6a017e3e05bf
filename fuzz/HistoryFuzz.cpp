// SPDX-License-Identifier: MIT
// Histories made of the input, written as text, and that text read again by a reader of its own:
// the figures are the same to the last digit that is written.
#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstring>
#include <map>
#include <optional>

#include "Fuzz.h"
#include "core/HistoryCSVExporter.h"

using namespace vtx;

namespace {

using Series = HistoryCSVExporter::Series;

constexpr std::array members{&Series::cpu,    &Series::pCore,    &Series::eCore,     &Series::gpu,
                             &Series::memory, &Series::diskRead, &Series::diskWrite, &Series::ane};
constexpr std::array<double, members.size()> factors{100, 100, 100, 100, 100, 1, 1, 100};
constexpr Date start{std::chrono::seconds{1'736'942'400}};

using Milliseconds = std::chrono::sys_time<std::chrono::milliseconds>;
/// What each column says at a moment, and how many rows that moment has.
struct Row {
    Milliseconds moment;
    std::array<std::optional<double>, members.size()> cells;
};

/// More points say nothing new, and take their time.
constexpr std::size_t mostBytes = 48;

/// Four bytes for each point: its series, how long after the one before it, and its value.
Series seriesOf(std::span<const std::byte> input) {
    Series series;
    Date now = start;
    input = input.first(std::min(input.size(), mostBytes));
    for (; input.size() >= 4; input = input.subspan(4)) {
        const auto number = [&](std::size_t at) { return std::to_integer<unsigned>(input[at]); };
        now += std::chrono::milliseconds(number(1) * 37);
        const double value = (number(2) * 256 + number(3)) / 65535.0;
        const std::size_t column = number(0) % members.size();
        const bool isRate = factors[column] == 1;
        (series.*members[column]).push_back({now, isRate ? value * 4e9 : value});
    }
    return series;
}

std::string_view taken(std::string_view& text, char end) {
    const auto length = text.find(end);
    fuzz::expect(length != text.npos);
    const auto part = text.substr(0, length);
    text.remove_prefix(length + 1);
    return part;
}

int whole(std::string_view digits, std::size_t width) {
    int value = -1;
    fuzz::expect(digits.size() == width);
    const auto end = digits.data() + digits.size();
    fuzz::expect(std::from_chars(digits.data(), end, value).ptr == end && value >= 0);
    return value;
}

/// Of the form 2025-01-15T12:00:00.000Z.
Milliseconds momentOf(std::string_view text) {
    using std::chrono::hours, std::chrono::minutes, std::chrono::milliseconds, std::chrono::year,
        std::chrono::month, std::chrono::day;
    fuzz::expect(text.size() == 24 && text[10] == 'T' && text[19] == '.' && text.back() == 'Z');
    const std::chrono::year_month_day date{
        year(whole(text.substr(0, 4), 4)),
        month(static_cast<unsigned>(whole(text.substr(5, 2), 2))),
        day(static_cast<unsigned>(whole(text.substr(8, 2), 2)))};
    fuzz::expect(date.ok());
    return std::chrono::sys_days(date) + hours(whole(text.substr(11, 2), 2)) +
           minutes(whole(text.substr(14, 2), 2)) +
           std::chrono::seconds(whole(text.substr(17, 2), 2)) +
           milliseconds(whole(text.substr(20, 3), 3));
}

Row rowOf(std::string_view line) {
    Row row;
    // The last cell ends with the line.
    std::string whole(line);
    whole += ',';
    std::string_view rest = whole;
    row.moment = momentOf(taken(rest, ','));
    for (auto& cell : row.cells) {
        const auto text = taken(rest, ',');
        if (text.empty()) continue;
        const auto point = text.find('.');
        fuzz::expect(point != text.npos && text.size() - point == 4);
        double value = 0;
        const auto end = text.data() + text.size();
        fuzz::expect(std::from_chars(text.data(), end, value).ptr == end);
        cell = value;
    }
    fuzz::expect(rest.empty());
    return row;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Series series = seriesOf(fuzz::asInputBytes(data, size));
    const std::string text = HistoryCSVExporter::makeCSV(series);
    std::string_view rest = text;
    fuzz::expect(taken(rest, '\n').starts_with("timestamp,cpu_percent,"));
    std::map<Milliseconds, Row> rows;
    while (!rest.empty()) {
        const Row row = rowOf(taken(rest, '\n'));
        fuzz::expect(rows.empty() || rows.rbegin()->first < row.moment);
        rows.emplace(row.moment, row);
    }
    // Of several points of a series at one moment the last one counts.
    std::map<Milliseconds, std::array<std::optional<double>, members.size()>> wanted;
    for (std::size_t i = 0; i < members.size(); ++i)
        for (const auto& [moment, value] : series.*members[i])
            wanted[std::chrono::floor<std::chrono::milliseconds>(moment)][i] = value * factors[i];
    fuzz::expect(wanted.size() == rows.size());
    for (const auto& [moment, cells] : wanted) {
        const auto found = rows.find(moment);
        fuzz::expect(found != rows.end());
        for (std::size_t i = 0; i < members.size(); ++i) {
            const auto& cell = found->second.cells[i];
            fuzz::expect(cell.has_value() == cells[i].has_value());
            fuzz::expect(!cell || std::fabs(*cell - *cells[i]) <= 0.000501);
        }
    }
    return 0;
}
