// SPDX-License-Identifier: MIT
#include "smc/TemperatureValueDecoder.h"

#include <bit>

#include "base/Bytes.h"
#include "smc/SMCCode.h"

namespace vtx {

std::optional<double> TemperatureValueDecoder::decodeSMCFloat(std::span<const std::byte> data,
                                                              std::uint32_t dataSize,
                                                              std::uint32_t dataType) {
    if (dataType != smcTypes::flt || dataSize < 4 || data.size() < 4) return std::nullopt;
    return static_cast<double>(std::bit_cast<float>(readLittleEndian32(data.first<4>())));
}

}  // namespace vtx
