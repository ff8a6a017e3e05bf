// SPDX-License-Identifier: MIT
#include "base/Utf8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vtx {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

struct Sequence {
    std::size_t length = 1;  // bytes that belong together
    bool isCharacter = false;
};

/// What the first byte asks for: how many follow, and within which bounds the next one lies.
struct Lead {
    std::size_t following = 0;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
};

bool leadOf(unsigned char byte, Lead& lead) {
    if (byte < 0xC2 || byte > 0xF4) return false;
    lead.following = byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
    if (byte == 0xE0) lead.low = 0xA0;
    if (byte == 0xED) lead.high = 0x9F;
    if (byte == 0xF0) lead.low = 0x90;
    if (byte == 0xF4) lead.high = 0x8F;
    return true;
}

Sequence sequenceAt(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (first < 0x80) return {1, true};
    Lead lead;
    if (!leadOf(first, lead)) return {};
    std::size_t length = 1;
    for (; length <= lead.following && length < bytes.size(); ++length) {
        const auto byte = static_cast<unsigned char>(bytes[length]);
        if (byte < lead.low || byte > lead.high) return {length, false};
        lead.low = 0x80;
        lead.high = 0xBF;
    }
    return {length, length == lead.following + 1};
}

/// Eight bytes at a time: this goes over the name and the path of every process.
bool isAscii(std::string_view bytes) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::uint64_t word = 0;
    while (bytes.size() >= sizeof word) {
        std::memcpy(&word, bytes.data(), sizeof word);
        if ((word & highBits) != 0) return false;
        bytes.remove_prefix(sizeof word);
    }
    word = 0;
    std::memcpy(&word, bytes.data(), bytes.size());
    return (word & highBits) == 0;
}

}  // namespace

std::string repairedUtf8(std::string_view bytes) {
    if (isAscii(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const Sequence sequence = sequenceAt(bytes);
        text += sequence.isCharacter ? bytes.substr(0, sequence.length) : replacement;
        bytes.remove_prefix(sequence.length);
    }
    return text;
}

}  // namespace vtx
