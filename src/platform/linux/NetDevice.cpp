// SPDX-License-Identifier: MIT
#include "platform/linux/NetDevice.h"

#include <algorithm>
#include <charconv>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

/// Counted from 0; between them are packets, errors and the like.
constexpr int columnIn = 0;
constexpr int columnOut = 8;

}  // namespace

std::optional<NetDeviceLine> parseNetDeviceLine(std::string_view line) {
    const auto colon = line.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    NetDeviceLine parsed;
    parsed.name = trimmed(line.substr(0, colon));
    if (parsed.name.empty()) return std::nullopt;
    line.remove_prefix(colon + 1);
    for (int column = columnIn; column <= columnOut; ++column) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        std::uint64_t value = 0;
        const auto [stop, error] = std::from_chars(line.data(), line.data() + line.size(), value);
        if (error != std::errc{}) return std::nullopt;
        line.remove_prefix(static_cast<std::size_t>(stop - line.data()));
        // Without an end of its own a number may be the first half of one.
        if (line.empty() || line.front() != ' ') return std::nullopt;
        if (column == columnIn) parsed.bytesIn = value;
        if (column == columnOut) parsed.bytesOut = value;
    }
    return parsed;
}

}  // namespace vtx
