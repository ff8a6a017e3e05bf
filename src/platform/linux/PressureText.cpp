// SPDX-License-Identifier: MIT
#include "platform/linux/PressureText.h"

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

/// "12.34"; the kernel never writes an exponent or a sign.
std::optional<double> parsePercent(std::string_view text) {
    const auto dot = text.find('.');
    if (dot == std::string_view::npos || text.size() - dot != 3) return std::nullopt;
    const auto whole = parseUnsigned(text.substr(0, dot));
    const auto part = parseUnsigned(text.substr(dot + 1));
    if (!whole || !part || *whole > 100) return std::nullopt;
    return static_cast<double>(*whole) + static_cast<double>(*part) / 100.0;
}

std::optional<std::string_view> valueOf(std::string_view line, std::string_view key) {
    while (!line.empty()) {
        const auto word = line.substr(0, line.find(' '));
        line.remove_prefix(word.size() < line.size() ? word.size() + 1 : line.size());
        if (word.size() > key.size() && word.starts_with(key) && word[key.size()] == '=')
            return word.substr(key.size() + 1);
    }
    return std::nullopt;
}

std::optional<PressureLine> parseLine(std::string_view line) {
    const auto avg10 = valueOf(line, "avg10");
    const auto total = valueOf(line, "total");
    if (!avg10 || !total) return std::nullopt;
    const auto percent = parsePercent(*avg10);
    const auto micros = parseUnsigned(*total);
    if (!percent || !micros) return std::nullopt;
    return PressureLine{*percent, *micros};
}

}  // namespace

std::optional<MemoryPressure> parseMemoryPressure(std::string_view text) {
    std::optional<PressureLine> some;
    std::optional<PressureLine> full;
    for (;;) {
        const auto end = text.find('\n');
        if (end == std::string_view::npos) break;
        const auto line = text.substr(0, end);
        text.remove_prefix(end + 1);
        if (!some && line.starts_with("some ")) some = parseLine(line);
        if (!full && line.starts_with("full ")) full = parseLine(line);
    }
    if (!some || !full) return std::nullopt;
    return MemoryPressure{*some, *full};
}

}  // namespace vtx
