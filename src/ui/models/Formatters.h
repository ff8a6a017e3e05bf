// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "telemetry/ThermalStats.h"

namespace vtx {

/// The one text for a value that is not known.
inline constexpr std::string_view emptyMark = "—";

/// How an attention-worthy value is coloured; never the only sign of it, since the number says it.
enum class Tint { primary, yellow, orange, red };

/// A fraction as "34%", for the strip. Rounds half away from zero.
std::string compactPercent(std::optional<double> fraction);
/// A fraction as "34 %", for pages.
std::string percent(std::optional<double> fraction);
/// A clock in MHz as "999 MHz" or, from 1000 on, "1.00 GHz".
std::string formatMHz(double mhz);
/// Bytes as units of 2^30, such as "7.9G".
std::string gigabytes(std::uint64_t bytes);
/// Degrees as "63°C" for the strip, or `fallback`.
std::string temperatureLabel(std::optional<double> celsius, std::string_view fallback);
/// Degrees as "63 °C", for pages.
std::string formatTemp(std::optional<double> celsius);
/// The system's thermal level as a word: its case's name, capitalised.
std::string thermalLevelName(ThermalStats::Level level);
/// Bytes a second in at most four characters for usual values: "500K", "2.0M", "50M", "150M".
std::string throughputLabel(double bytesPerSecond);
/// The sum of two rates, of which an absent one counts as 0; "—" where both are absent.
std::string throughputLabel(std::optional<double> read, std::optional<double> written);

/// Yellow from 0.7, orange from 0.85, red from 0.95.
Tint loadTint(std::optional<double> fraction);
/// Yellow from 0.65, orange from 0.8, red from 0.9 of the total; primary where that is 0.
Tint memoryTint(std::uint64_t used, std::uint64_t total);

}  // namespace vtx
