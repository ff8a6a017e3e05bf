// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vtx {

/// A kernel result code; 0 is success.
using KernReturn = std::int32_t;
inline constexpr KernReturn kernSuccess = 0;
inline constexpr KernReturn kernFailure = 5;

// Results of the device family.
inline constexpr KernReturn ioReturnNoDevice = static_cast<KernReturn>(0xE00002C0U);
inline constexpr KernReturn ioReturnNotPrivileged = static_cast<KernReturn>(0xE00002C1U);
inline constexpr KernReturn ioReturnBadArgument = static_cast<KernReturn>(0xE00002C2U);
inline constexpr KernReturn ioReturnNotOpen = static_cast<KernReturn>(0xE00002CDU);

}  // namespace vtx
