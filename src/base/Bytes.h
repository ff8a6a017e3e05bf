// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/Data.h"

namespace vtx {

/// The unsigned number in four bytes, the lowest first, whatever the machine's own order.
inline std::uint32_t readLittleEndian32(std::span<const std::byte, 4> bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) value |= std::to_integer<std::uint32_t>(bytes[i]) << 8 * i;
    return value;
}

inline void appendLittleEndian32(Data& data, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i)
        data.push_back(static_cast<std::byte>((value >> 8 * i) & 0xffU));
}

}  // namespace vtx
