// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace vtx {

/// The number that the value of a key stands for, by the key's own type and size; what its type
/// does not say is told by the size. Whole and fixed-point numbers have their highest byte first,
/// "flt " its lowest. Absent where the data is too short for all that could be meant.
[[nodiscard]] std::optional<double> decodeNumeric(std::span<const std::byte> data,
                                                  std::uint32_t type, std::uint32_t size);

}  // namespace vtx
