// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vtx {

// What the kernel's files of sensors say. Every text may be anything at all.

/// Parts of a degree that a file counts.
enum class TemperatureUnit : std::int64_t { thousandths = 1, tenths = 100 };

/// Degrees Celsius. Absent for what is no number, and for what no sensor measures but drivers give
/// where nothing is connected or nothing is known: exactly 0, 127 and above, -128 and below.
[[nodiscard]] std::optional<double> parseTemperature(
    std::string_view text, TemperatureUnit unit = TemperatureUnit::thousandths);

/// Revolutions per minute. Absent for what is no number, negative, or 65535 and above, which
/// drivers give where nothing is known.
[[nodiscard]] std::optional<double> parseFanSpeed(std::string_view text);

/// Whether a flag such as "fault" or "alarm" is raised.
[[nodiscard]] bool isRaised(std::string_view text);

/// What a sensor or a chip is called: without white space around it, at most 100 bytes of it, which
/// need not be valid UTF-8. May be empty.
[[nodiscard]] std::string_view sensorName(std::string_view text);

/// The number of a channel: 12 for "temp12_input" with the kind "temp" and the part "_input".
/// Absent for any other name and beyond 9999.
[[nodiscard]] std::optional<std::uint32_t> channelNumber(std::string_view file,
                                                         std::string_view kind,
                                                         std::string_view part);

}  // namespace vtx
