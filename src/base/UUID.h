// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <random>

namespace vtx {

/// An identity that no other thing has: 122 random bits, in the layout of version 4.
struct UUID {
    std::array<std::uint8_t, 16> bytes{};

    bool operator==(const UUID&) const = default;

    [[nodiscard]] static UUID random() {
        UUID made;
        std::random_device source;
        for (auto& byte : made.bytes) byte = static_cast<std::uint8_t>(source());
        made.bytes[6] = static_cast<std::uint8_t>((made.bytes[6] & 0x0F) | 0x40);
        made.bytes[8] = static_cast<std::uint8_t>((made.bytes[8] & 0x3F) | 0x80);
        return made;
    }
};

}  // namespace vtx
