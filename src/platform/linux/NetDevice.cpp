// SPDX-License-Identifier: MIT
#include "platform/linux/NetDevice.h"

#include "platform/linux/Parse.h"
#include "platform/linux/TextScan.h"

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
    TextScan scan(line.substr(colon + 1));
    for (int column = columnIn; column <= columnOut; ++column) {
        while (scan.take(' ')) {
        }
        std::uint64_t value = 0;
        if (!scan.takeNumber(value)) return std::nullopt;
        // Without an end of its own a number may be the first half of one.
        if (!scan.take(' ')) return std::nullopt;
        if (column == columnIn) parsed.bytesIn = value;
        if (column == columnOut) parsed.bytesOut = value;
    }
    return parsed;
}

}  // namespace vtx
