// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace vtx {

/// No kernel numbers its processors this high; a list that does is damaged.
inline constexpr std::uint32_t cpuNumberLimit = 16'384;

/// The text without the white space and zero bytes around it.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// Takes the first line, without its end, off the front of `text`.
[[nodiscard]] std::string_view takeLine(std::string_view& text);

/// A decimal number and nothing but white space around it; absent when it does not fit.
[[nodiscard]] std::optional<std::uint64_t> parseUnsigned(std::string_view text);
[[nodiscard]] std::optional<std::int64_t> parseSigned(std::string_view text);

/// A list of the kernel's form "0-3,8,10-11", ascending and each number once whatever the order of
/// its parts. An empty text is an empty list; anything not understood makes it absent.
[[nodiscard]] std::optional<std::vector<std::uint32_t>> parseCpuList(std::string_view text);

/// The value behind the colon of the first line "key : value", as in /proc/cpuinfo and
/// /proc/meminfo. Absent when no line has that key.
[[nodiscard]] std::optional<std::string_view> fieldOf(std::string_view text, std::string_view key);

}  // namespace vtx
