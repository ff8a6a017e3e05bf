// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/ProcessTable.h"

namespace vtx {

/// Time units as nanoseconds. Splits the product, which could leave 64 bits. A timebase without a
/// denominator leaves the units as they are.
[[nodiscard]] constexpr std::uint64_t nanoseconds(std::uint64_t units, MachTimebaseInfo timebase) {
    const std::uint64_t numer = timebase.numer;
    const std::uint64_t denom = timebase.denom;
    if (numer == denom || denom == 0) return units;
    return units / denom * numer + units % denom * numer / denom;
}

}  // namespace vtx
