// SPDX-License-Identifier: MIT
#include "platform/linux/CpuFreqText.h"

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::size_t numbersLimit = 16'384;
/// 348 years.
constexpr std::uint64_t ticksLimit = std::uint64_t{1} << 40;

std::optional<ClockTime> parseClockTime(std::string_view line) {
    const auto space = line.find(' ');
    if (space == std::string_view::npos) return std::nullopt;
    const auto kHz = parseUnsigned(line.substr(0, space));
    const auto ticks = parseUnsigned(line.substr(space + 1));
    if (!kHz || !isClock(*kHz) || !ticks || *ticks >= ticksLimit) return std::nullopt;
    return ClockTime{*kHz, *ticks};
}

}  // namespace

std::optional<std::vector<std::uint64_t>> parseNumbers(std::string_view text) {
    constexpr std::string_view blank = " \t\r\n";
    std::vector<std::uint64_t> numbers;
    for (text = trimmed(text); !text.empty(); text = trimmed(text)) {
        const auto word = text.substr(0, text.find_first_of(blank));
        const auto number = parseUnsigned(word);
        if (!number || numbers.size() == numbersLimit) return std::nullopt;
        numbers.push_back(*number);
        text.remove_prefix(word.size());
    }
    return numbers;
}

std::optional<std::vector<ClockTime>> parseTimeInState(std::string_view text) {
    if (!text.ends_with('\n')) return std::nullopt;
    std::vector<ClockTime> times;
    while (!text.empty()) {
        const auto time = parseClockTime(takeLine(text));
        if (!time || times.size() == numbersLimit) return std::nullopt;
        times.push_back(*time);
    }
    return times;
}

}  // namespace vtx
