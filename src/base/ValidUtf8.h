// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string_view>

namespace vtx {

/// Whether the text is well-formed UTF-8: no lone, missing or overlong bytes, no surrogates,
/// nothing beyond the last code point.
[[nodiscard]] constexpr bool isValidUtf8(std::string_view text) {
    while (!text.empty()) {
        const auto lead = static_cast<unsigned char>(text[0]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
        if ((lead >= 0x80 && lead < 0xc2) || lead > 0xf4 || text.size() < length) return false;
        const auto isNext = [](char character) {
            return (static_cast<unsigned char>(character) & 0xc0) == 0x80;
        };
        if (!std::ranges::all_of(text.substr(1, length - 1), isNext)) return false;
        const unsigned second = length > 1 ? static_cast<unsigned char>(text[1]) : 0;
        if ((lead == 0xe0 && second < 0xa0) || (lead == 0xed && second > 0x9f) ||
            (lead == 0xf0 && second < 0x90) || (lead == 0xf4 && second > 0x8f))
            return false;
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace vtx
