// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vtx {

/// One line of /proc/net/dev: what went through an interface since it came, in 64 bits.
struct NetDeviceLine {
    std::string_view name;
    std::uint64_t bytesIn = 0;
    std::uint64_t bytesOut = 0;

    friend bool operator==(const NetDeviceLine&, const NetDeviceLine&) = default;
};

/// Absent for the lines of the heading and for every line that is not understood: without a name,
/// or with fewer than nine numbers behind it.
[[nodiscard]] std::optional<NetDeviceLine> parseNetDeviceLine(std::string_view line);

}  // namespace vtx
