// SPDX-License-Identifier: MIT
#include "platform/linux/Collation.h"

#include <langinfo.h>
#include <string.h>
#include <wctype.h>

#include <cstddef>

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

std::string smallLetters(std::string_view text, locale_t rules) {
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

locale_t locale(const char* name) {
    return ::newlocale(LC_COLLATE_MASK | LC_CTYPE_MASK, name, locale_t{});
}

}  // namespace

Collation::Rules Collation::load() const {
    std::string name;
    for (const auto* variable : {"LC_ALL", "LC_COLLATE", "LANG"})
        if (name.empty()) name = environment_(variable).value_or("");
    Rules wanted(name.empty() ? locale_t{} : locale(name.c_str()));
    if (wanted && std::string_view(::nl_langinfo_l(CODESET, wanted.get())) == "UTF-8")
        return wanted;
    Rules plain(locale("C.UTF-8"));
    return plain ? std::move(plain) : Rules(locale("C"));
}

std::string Collation::key(std::string_view text) const {
    if (!rules_) rules_ = load();
    if (!rules_) return std::string(text);
    const std::string small = smallLetters(text, rules_.get());
    std::string key(small.size() * 4 + 16, '\0');
    std::size_t length = ::strxfrm_l(key.data(), small.c_str(), key.size(), rules_.get());
    if (length >= key.size()) {
        key.resize(length + 1);
        length = ::strxfrm_l(key.data(), small.c_str(), key.size(), rules_.get());
    }
    key.resize(length);
    return key;
}

}  // namespace vtx
