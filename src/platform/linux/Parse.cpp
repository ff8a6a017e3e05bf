// SPDX-License-Identifier: MIT
#include "platform/linux/Parse.h"

#include <algorithm>
#include <charconv>

namespace vtx {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f' || c == '\0';
}

template <class Number>
std::optional<Number> parseWhole(std::string_view text) {
    Number value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc{} || stop != end) return std::nullopt;
    return value;
}

bool appendCpuRange(std::string_view part, std::vector<std::uint32_t>& into) {
    const auto dash = part.find('-');
    const auto first = parseWhole<std::uint32_t>(part.substr(0, dash));
    const auto last =
        dash == std::string_view::npos ? first : parseWhole<std::uint32_t>(part.substr(dash + 1));
    if (!first || !last || *first > *last || *last >= cpuNumberLimit) return false;
    for (std::uint32_t number = *first; number <= *last; ++number) into.push_back(number);
    return true;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::string_view takeLine(std::string_view& text) {
    const auto end = std::min(text.find('\n'), text.size());
    const auto line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

std::optional<std::uint64_t> parseUnsigned(std::string_view text) {
    return parseWhole<std::uint64_t>(trimmed(text));
}

std::optional<std::int64_t> parseSigned(std::string_view text) {
    return parseWhole<std::int64_t>(trimmed(text));
}

std::optional<std::vector<std::uint32_t>> parseCpuList(std::string_view text) {
    std::vector<std::uint32_t> numbers;
    text = trimmed(text);
    while (!text.empty()) {
        const auto comma = text.find(',');
        if (comma + 1 == text.size()) return std::nullopt;
        if (!appendCpuRange(text.substr(0, comma), numbers)) return std::nullopt;
        // A list that repeats itself must not grow without bound.
        if (numbers.size() > 2 * std::size_t{cpuNumberLimit}) return std::nullopt;
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    std::ranges::sort(numbers);
    const auto repeated = std::ranges::unique(numbers);
    numbers.erase(repeated.begin(), repeated.end());
    return numbers;
}

std::optional<std::string_view> fieldOf(std::string_view text, std::string_view key) {
    while (!text.empty()) {
        const auto line = takeLine(text);
        const auto colon = line.find(':');
        if (colon == std::string_view::npos || trimmed(line.substr(0, colon)) != key) continue;
        return trimmed(line.substr(colon + 1));
    }
    return std::nullopt;
}

}  // namespace vtx
