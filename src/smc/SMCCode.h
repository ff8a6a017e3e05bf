// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace vtx {

/// The code of an SMC key or type: folds over the text's bytes from the first on, each shifting the
/// code by 8 bits. No padding and no length check: the blank at the end of "flt " belongs to it.
[[nodiscard]] constexpr std::uint32_t smcCode(std::string_view text) {
    std::uint32_t code = 0;
    for (const char byte : text) code = (code << 8) | static_cast<unsigned char>(byte);
    return code;
}

/// Types that have a decoding of their own.
namespace smcTypes {
inline constexpr std::uint32_t flt = smcCode("flt ");
inline constexpr std::uint32_t fpe2 = smcCode("fpe2");
inline constexpr std::uint32_t fp2e = smcCode("fp2e");
inline constexpr std::uint32_t ui16 = smcCode("ui16");
inline constexpr std::uint32_t ui8 = smcCode("ui8 ");
inline constexpr std::uint32_t sp78 = smcCode("sp78");
}  // namespace smcTypes

}  // namespace vtx
