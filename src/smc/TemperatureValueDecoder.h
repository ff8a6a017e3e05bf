// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace vtx {

/// Decodes what temperature sensors give, which is nothing but floats.
struct TemperatureValueDecoder {
    TemperatureValueDecoder() = delete;

    /// Absent for every type but "flt ", and for fewer than four bytes by size or data.
    [[nodiscard]] static std::optional<double> decodeSMCFloat(std::span<const std::byte> data,
                                                              std::uint32_t dataSize,
                                                              std::uint32_t dataType);
};

}  // namespace vtx
