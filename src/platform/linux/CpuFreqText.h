// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace vtx {

/// Clocks are told in kHz. What lies outside of these bounds is no processor's clock.
inline constexpr std::uint64_t leastClockKHz = 1'000;
inline constexpr std::uint64_t mostClockKHz = 99'999'999;
[[nodiscard]] constexpr bool isClock(std::uint64_t kHz) {
    return kHz >= leastClockKHz && kHz <= mostClockKHz;
}

/// Numbers with white space between them, as in `related_cpus` and
/// `scaling_available_frequencies`, in their own order. Absent when anything else is among them or
/// when there are more than 16384.
[[nodiscard]] std::optional<std::vector<std::uint64_t>> parseNumbers(std::string_view text);

/// A line "frequency time" of `stats/time_in_state`: how long a policy stood at a clock.
struct ClockTime {
    std::uint64_t kHz = 0;
    std::uint64_t ticks = 0;  ///< hundredths of a second since the machine started or since a reset
    friend bool operator==(const ClockTime&, const ClockTime&) = default;
};
/// All lines, in their order. Absent unless each is understood, the last one's end included, so
/// that a truncated number is never taken for a whole one; absent for an empty text.
[[nodiscard]] std::optional<std::vector<ClockTime>> parseTimeInState(std::string_view text);

}  // namespace vtx
