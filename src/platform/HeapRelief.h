// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vtx {

/// This program's own heap. Main executor.
class HeapRelief {
public:
    HeapRelief() = default;
    HeapRelief(const HeapRelief&) = delete;
    HeapRelief& operator=(const HeapRelief&) = delete;
    virtual ~HeapRelief() = default;

    /// `malloc_zone_pressure_relief` over all zones with a goal of 0: gives as much of the unused
    /// heap back to the system as it can, and returns the bytes that the program then holds less.
    [[nodiscard]] virtual std::int64_t mallocZonePressureRelief() = 0;
};

}  // namespace vtx
