// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

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
/// Degrees as "63°C" for the strip, or `fallback`.
std::string temperatureLabel(std::optional<double> celsius, std::string_view fallback);
/// Degrees as "63 °C", for pages.
std::string formatTemp(std::optional<double> celsius);
/// Bytes a second in at most four characters for usual values: "500K", "2.0M", "50M", "150M".
std::string throughputLabel(double bytesPerSecond);

/// Yellow from 0.7, orange from 0.85, red from 0.95.
Tint loadTint(std::optional<double> fraction);

}  // namespace vtx
