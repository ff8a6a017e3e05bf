// SPDX-License-Identifier: MIT
#include "platform/linux/Base64.h"

#include <algorithm>
#include <cstdint>

namespace vtx {
namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string toBase64(std::span<const std::byte> bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            group = group << 8 | (k < count ? std::to_integer<std::uint32_t>(bytes[i + k]) : 0u);
        }
        for (std::size_t k = 0; k < 4; ++k) {
            text += k <= count ? alphabet[group >> (18 - 6 * k) & 63] : '=';
        }
    }
    return text;
}

std::optional<Data> fromBase64(std::string_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
    Data bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool padded = i >= text.size() - padding;
        const auto value = padded ? 0 : alphabet.find(text[i]);
        if (value == std::string_view::npos) return std::nullopt;
        group = group << 6 | static_cast<std::uint32_t>(value);
        if (i % 4 != 3) continue;
        for (const int shift : {16, 8, 0}) {
            bytes.push_back(static_cast<std::byte>(group >> shift & 0xff));
        }
        group = 0;
    }
    // Bits that the padding leaves over must be zero, as the encoder leaves them.
    for (std::size_t k = 0; k < padding; ++k) {
        if (bytes.back() != std::byte{0}) return std::nullopt;
        bytes.pop_back();
    }
    return bytes;
}

}  // namespace vtx
