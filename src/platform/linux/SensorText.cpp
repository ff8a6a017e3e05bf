// SPDX-License-Identifier: MIT
#include "platform/linux/SensorText.h"

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::int64_t leastMillidegrees = -128'000;
constexpr std::int64_t mostMillidegrees = 127'000;
constexpr std::uint64_t unknownSpeed = 65'535;
constexpr std::size_t longestName = 100;
constexpr std::size_t mostDigits = 4;

}  // namespace

std::optional<double> parseTemperature(std::string_view text, TemperatureUnit unit) {
    const auto number = parseSigned(text);
    const auto scale = static_cast<std::int64_t>(unit);
    if (!number || *number == 0) return std::nullopt;
    // Compared before it is scaled, so that no number overflows.
    if (*number <= leastMillidegrees / scale || *number >= mostMillidegrees / scale)
        return std::nullopt;
    return static_cast<double>(*number * scale) / 1000.0;
}

std::optional<double> parseFanSpeed(std::string_view text) {
    const auto number = parseUnsigned(text);
    if (!number || *number >= unknownSpeed) return std::nullopt;
    return static_cast<double>(*number);
}

bool isRaised(std::string_view text) { return parseSigned(text).value_or(0) != 0; }

std::string_view sensorName(std::string_view text) {
    return trimmed(trimmed(text).substr(0, longestName));
}

std::optional<std::uint32_t> channelNumber(std::string_view file, std::string_view kind,
                                           std::string_view part) {
    if (!file.starts_with(kind) || !file.ends_with(part)) return std::nullopt;
    if (file.size() <= kind.size() + part.size()) return std::nullopt;
    const auto digits = file.substr(kind.size(), file.size() - kind.size() - part.size());
    if (digits.size() > mostDigits || digits.find_first_not_of("0123456789") != digits.npos)
        return std::nullopt;
    return static_cast<std::uint32_t>(parseUnsigned(digits).value_or(0));
}

}  // namespace vtx
