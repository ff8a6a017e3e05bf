// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "base/Data.h"

namespace vtx {

// Values as the SMC keeps them. Whole and fixed-point numbers have their highest byte first, floats
// their lowest, which is the SMC's own way.

/// Of type "flt ".
[[nodiscard]] Data encodeSMCFloat(float value);
/// Of type "ui8 " or "flag".
[[nodiscard]] Data encodeSMCUnsigned8(std::uint8_t value);
/// Of type "ui16".
[[nodiscard]] Data encodeSMCUnsigned16(std::uint16_t value);
/// Of type "ui32".
[[nodiscard]] Data encodeSMCUnsigned32(std::uint32_t value);
/// Of type "fpe2", in quarters, from 0 to 16383.75; what is beyond, or no number, becomes the
/// nearest of these.
[[nodiscard]] Data encodeSMCQuarters(double value);
/// Of type "sp78", in 256ths, from -128 to just below 128, as before.
[[nodiscard]] Data encodeSMCSigned256ths(double value);

}  // namespace vtx
