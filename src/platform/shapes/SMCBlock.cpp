// SPDX-License-Identifier: MIT
#include "platform/shapes/SMCBlock.h"

#include <algorithm>

#include "base/Bytes.h"

namespace vtx {
namespace {

constexpr std::size_t keyAt = 0;
constexpr std::size_t dataSizeAt = 28;
constexpr std::size_t dataTypeAt = 32;
constexpr std::size_t attributesAt = 36;
constexpr std::size_t resultAt = 40;
constexpr std::size_t commandAt = 42;
constexpr std::size_t indexAt = 44;
constexpr std::size_t bytesAt = 48;

std::uint32_t number(std::span<const std::byte> block, std::size_t offset) {
    return readLittleEndian32(block.subspan(offset).first<4>());
}

void put(SMCBlock& block, std::size_t offset, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i)
        block[offset + i] = static_cast<std::byte>((value >> 8 * i) & 0xffU);
}

}  // namespace

std::uint32_t packSMCCode(std::string_view text) {
    std::uint32_t code = 0;
    for (const char character : text) code = code << 8 | static_cast<unsigned char>(character);
    return code;
}

std::optional<SMCRequest> decodeSMCRequest(std::span<const std::byte> block) {
    if (block.size() != smcBlockSize) return std::nullopt;
    SMCRequest request;
    request.key = number(block, keyAt);
    request.dataSize = number(block, dataSizeAt);
    request.dataType = number(block, dataTypeAt);
    request.attributes = std::to_integer<std::uint8_t>(block[attributesAt]);
    request.command = std::to_integer<std::uint8_t>(block[commandAt]);
    request.index = number(block, indexAt);
    std::ranges::copy(block.subspan(bytesAt), request.bytes.begin());
    return request;
}

SMCBlock encodeSMCAnswer(const SMCAnswer& answer) {
    SMCBlock block{};
    put(block, keyAt, answer.key);
    put(block, dataSizeAt, answer.dataSize);
    put(block, dataTypeAt, answer.dataType);
    block[attributesAt] = std::byte{answer.attributes};
    block[resultAt] = std::byte{answer.result};
    const auto sent = std::min(answer.bytes.size(), smcValueRoom);
    std::copy_n(answer.bytes.begin(), sent, block.begin() + bytesAt);
    return block;
}

}  // namespace vtx
