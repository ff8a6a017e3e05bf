// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vtx {

/// A kernel result code; 0 is success.
using KernReturn = std::int32_t;
inline constexpr KernReturn kernSuccess = 0;
inline constexpr KernReturn kernFailure = 5;

}  // namespace vtx
