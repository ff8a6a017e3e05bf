// SPDX-License-Identifier: MIT
#include "platform/linux/LetterCase.h"

#include <wctype.h>

#include <algorithm>

#include "base/Utf8.h"

namespace vtx {
namespace {

/// Takes one character off the front of valid UTF-8.
char32_t takeCharacter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (first < 0x80) return first;
    const int following = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    char32_t character = first & (0x3FU >> following);
    for (int i = 0; i < following && !text.empty(); ++i) {
        character = character << 6 | (static_cast<unsigned char>(text.front()) & 0x3FU);
        text.remove_prefix(1);
    }
    return character;
}

void append(std::string& text, char32_t character) {
    const auto byte = [&](char32_t value) { text += static_cast<char>(value); };
    if (character < 0x80) return byte(character);
    const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    byte((0xF00U >> (following + 1) & 0xFFU) | character >> (6 * following));
    for (int i = following - 1; i >= 0; --i) byte(0x80U | (character >> (6 * i) & 0x3FU));
}

std::string smallAscii(std::string_view text) {
    std::string small(text);
    for (char& c : small)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return small;
}

}  // namespace

std::string lowercased(std::string_view text, locale_t rules) {
    const std::string valid = repairedUtf8(text);
    std::string small;
    small.reserve(valid.size());
    // A zero byte would end the text for the C library.
    const std::string_view whole = valid;
    for (std::string_view rest = whole.substr(0, whole.find('\0')); !rest.empty();)
        append(small, static_cast<char32_t>(
                          ::towlower_l(static_cast<wint_t>(takeCharacter(rest)), rules)));
    return small;
}

std::string LetterCase::lowercased(std::string_view text) const {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::ranges::all_of(text, isAscii)) return smallAscii(text);
    if (!rules_) rules_.reset(::newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{}));
    return rules_ ? vtx::lowercased(text, rules_.get()) : smallAscii(text);
}

}  // namespace vtx
