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
#include <vector>

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
/// What each column says at a moment.
struct Row {
    Milliseconds moment;
    std::array<std::optional<double>, members.size()> cells;
};

/// More points say nothing new, and take their time.
constexpr std::size_t mostBytes = 96;

/// No calendar here goes on for longer.
constexpr Date first{std::chrono::sys_days(std::chrono::January / 1 / 0)};
constexpr Date last{std::chrono::sys_days(std::chrono::January / 1 / 32'767)};

template <class Number>
Number numberIn(std::span<const std::byte, sizeof(Number)> bytes) {
    Number number{};
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

/// Of a point four bytes: its series, how long after the one before it, and its value, of a
/// sensible size. Or, where the first byte says so, 17: its series, any moment and any value.
Series seriesOf(std::span<const std::byte> input) {
    constexpr unsigned anySize = 17;
    Series series;
    Date now = start;
    input = input.first(std::min(input.size(), mostBytes));
    while (input.size() >= 4) {
        const auto number = [&](std::size_t at) { return std::to_integer<unsigned>(input[at]); };
        const std::size_t column = number(0) % members.size();
        const bool isRate = factors[column] == 1;
        if (number(0) < 0x80) {
            now += std::chrono::milliseconds(number(1) * 37);
            const double value = (number(2) * 256 + number(3)) / 65535.0;
            (series.*members[column]).push_back({now, isRate ? value * 4e9 : value});
            input = input.subspan(4);
        } else {
            if (input.size() < anySize) break;
            const auto after = numberIn<std::uint64_t>(input.subspan<1, 8>());
            now = first + std::chrono::microseconds(
                              after % static_cast<std::uint64_t>((last - first).count()));
            (series.*members[column]).push_back({now, numberIn<double>(input.subspan<9, 8>())});
            input = input.subspan(anySize);
        }
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

int whole(std::string_view digits, std::size_t width, std::size_t mostWidth) {
    int value = -1;
    fuzz::expect(digits.size() >= width && digits.size() <= mostWidth);
    const auto end = digits.data() + digits.size();
    fuzz::expect(std::from_chars(digits.data(), end, value).ptr == end && value >= 0);
    return value;
}

int whole(std::string_view digits, std::size_t width) { return whole(digits, width, width); }

/// Of the form 2025-01-15T12:00:00.000Z; a year beyond 9999 has five digits.
Milliseconds momentOf(std::string_view text) {
    using std::chrono::hours, std::chrono::minutes, std::chrono::milliseconds, std::chrono::year,
        std::chrono::month, std::chrono::day;
    const auto years = whole(text.substr(0, text.find('-')), 4, 5);
    text.remove_prefix(text.find('-'));
    fuzz::expect(text.size() == 20 && text[6] == 'T' && text[15] == '.' && text.back() == 'Z');
    const std::chrono::year_month_day date{
        year(years), month(static_cast<unsigned>(whole(text.substr(1, 2), 2))),
        day(static_cast<unsigned>(whole(text.substr(4, 2), 2)))};
    fuzz::expect(date.ok());
    return std::chrono::sys_days(date) + hours(whole(text.substr(7, 2), 2)) +
           minutes(whole(text.substr(10, 2), 2)) +
           std::chrono::seconds(whole(text.substr(13, 2), 2)) +
           milliseconds(whole(text.substr(16, 3), 3));
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
        double value = 0;
        const auto end = text.data() + text.size();
        fuzz::expect(std::from_chars(text.data(), end, value).ptr == end);
        const auto point = text.find('.');
        fuzz::expect(!std::isfinite(value) || (point != text.npos && text.size() - point == 4));
        cell = value;
    }
    fuzz::expect(rest.empty());
    return row;
}

bool isSame(double cell, double wanted) {
    if (!std::isfinite(wanted)) return std::isnan(wanted) ? std::isnan(cell) : cell == wanted;
    return std::fabs(cell - wanted) <= std::max(0.000501, std::fabs(wanted) * 1e-15);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Series series = seriesOf(fuzz::asInputBytes(data, size));
    const std::string text = HistoryCSVExporter::makeCSV(series);
    std::string_view rest = text;
    fuzz::expect(taken(rest, '\n').starts_with("timestamp,cpu_percent,"));
    std::vector<Row> rows;
    while (!rest.empty()) {
        rows.push_back(rowOf(taken(rest, '\n')));
        fuzz::expect(rows.size() < 2 || rows[rows.size() - 2].moment <= rows.back().moment);
    }
    // Of several points of a series at one moment the last one counts.
    std::map<Date, std::array<std::optional<double>, members.size()>> wanted;
    for (std::size_t i = 0; i < members.size(); ++i)
        for (const auto& [moment, value] : series.*members[i])
            wanted[moment][i] = value * factors[i];
    fuzz::expect(wanted.size() == rows.size());
    auto row = rows.begin();
    for (const auto& [moment, cells] : wanted) {
        fuzz::expect(row->moment == std::chrono::floor<std::chrono::milliseconds>(moment));
        for (std::size_t i = 0; i < members.size(); ++i) {
            const auto& cell = row->cells[i];
            fuzz::expect(cell.has_value() == cells[i].has_value());
            fuzz::expect(!cell || isSame(*cell, *cells[i]));
        }
        ++row;
    }
    return 0;
}
