// SPDX-License-Identifier: MIT
#include "platform/shapes/SMCValue.h"

#include <bit>
#include <cmath>

#include "base/Bytes.h"

namespace vtx {
namespace {

// The nearest whole number between the two, which a NaN, too, becomes one of.
double nearest(double value, double least, double most) {
    return std::round(std::fmin(std::fmax(value, least), most));
}

}  // namespace

Data encodeSMCFloat(float value) {
    Data data;
    appendLittleEndian32(data, std::bit_cast<std::uint32_t>(value));
    return data;
}

Data encodeSMCUnsigned8(std::uint8_t value) { return {std::byte{value}}; }

Data encodeSMCUnsigned16(std::uint16_t value) {
    return {static_cast<std::byte>(value >> 8), static_cast<std::byte>(value & 0xff)};
}

Data encodeSMCUnsigned32(std::uint32_t value) {
    Data data = encodeSMCUnsigned16(static_cast<std::uint16_t>(value >> 16));
    const Data low = encodeSMCUnsigned16(static_cast<std::uint16_t>(value & 0xffffU));
    data.insert(data.end(), low.begin(), low.end());
    return data;
}

Data encodeSMCQuarters(double value) {
    return encodeSMCUnsigned16(static_cast<std::uint16_t>(nearest(value * 4.0, 0.0, 65535.0)));
}

Data encodeSMCSigned256ths(double value) {
    const auto raw = static_cast<std::int16_t>(nearest(value * 256.0, -32768.0, 32767.0));
    return encodeSMCUnsigned16(static_cast<std::uint16_t>(raw));
}

}  // namespace vtx
