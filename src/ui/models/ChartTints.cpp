// SPDX-License-Identifier: MIT
#include "ui/models/ChartTints.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace vtx::ChartTints {
namespace {

constexpr std::size_t digits = 6;

std::string_view withoutOuterSpace(std::string_view text) {
    constexpr std::string_view space = " \t\n\v\f\r";
    const std::size_t first = text.find_first_not_of(space);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

std::optional<std::uint32_t> number(std::string_view hex) {
    std::string bare(withoutOuterSpace(hex));
    std::erase(bare, '#');
    std::uint32_t value = 0;
    const char* const end = bare.data() + bare.size();
    const auto read = std::from_chars(bare.data(), end, value, 16);
    const bool isWhole = bare.size() == digits && read.ec == std::errc{} && read.ptr == end;
    return isWhole ? std::optional(value) : std::nullopt;
}

}  // namespace

SeriesTint color(std::string_view hex, SeriesTint fallback) {
    const auto value = number(hex);
    if (!value) return fallback;
    const auto byte = [&value](unsigned shift) {
        return static_cast<std::uint8_t>((*value >> shift) & 0xFFU);
    };
    return {fallback.role, RGBColor{byte(16), byte(8), byte(0)}};
}

}  // namespace vtx::ChartTints
