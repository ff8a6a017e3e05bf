// SPDX-License-Identifier: MIT
#include "smc/SMCNumericDecoder.h"

#include <bit>

#include "base/Bytes.h"
#include "smc/SMCCode.h"

namespace vtx {
namespace {

double littleEndianFloat(std::span<const std::byte> data) {
    return static_cast<double>(std::bit_cast<float>(readLittleEndian32(data.first<4>())));
}

std::uint16_t bigEndian16(std::span<const std::byte> data) {
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(data[0]) << 8 |
                                      std::to_integer<unsigned>(data[1]));
}

double quarters(std::span<const std::byte> data) { return bigEndian16(data) * 0.25; }

}  // namespace

std::optional<double> decodeNumeric(std::span<const std::byte> data, std::uint32_t type,
                                    std::uint32_t size) {
    const bool hasTwo = data.size() >= 2;
    const bool hasFour = data.size() >= 4;
    if (type == smcTypes::flt && hasFour) return littleEndianFloat(data);
    if (type == smcTypes::ui8 && !data.empty()) return std::to_integer<unsigned>(data[0]);
    if (type == smcTypes::ui16 && hasTwo) return bigEndian16(data);
    if (type == smcTypes::fpe2 || type == smcTypes::fp2e)
        return hasTwo ? std::optional(quarters(data)) : std::nullopt;
    if (type == smcTypes::sp78) {
        if (!hasTwo) return std::nullopt;
        return static_cast<std::int16_t>(bigEndian16(data)) * 0.00390625;
    }
    if (size >= 4 && hasFour) return littleEndianFloat(data);
    if (size >= 2 && hasTwo) return quarters(data);
    return std::nullopt;
}

}  // namespace vtx
