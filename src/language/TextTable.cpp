// SPDX-License-Identifier: MIT
#include "language/TextTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <bitset>

#include "base/Fault.h"

namespace vtx {

TextTable::TextTable(const TextLists& lists) {
    lay(lists.base);
    lay(lists.additions);
}

void TextTable::lay(std::span<const TextEntry> list) {
    std::bitset<L10n::keyCount> seen;
    for (const auto& [key, text] : list) {
        const std::size_t index = L10n::indexOf(key);
        if (seen[index]) {
            programmingFault(fmt::format("a text list holds {} twice", L10n::rawValue(key)));
        }
        seen.set(index);
        texts_[index] = text;
    }
}

std::optional<std::string_view> TextTable::text(L10n::Key key) const {
    const std::string_view text = texts_[L10n::indexOf(key)];
    if (!text.data()) return std::nullopt;
    return text;
}

std::optional<std::string_view> LanguageTexts::text(L10n::Key key) const {
    const auto worded = std::ranges::find(wording, key, &TextEntry::key);
    if (worded != wording.end()) return worded->text;
    return table ? table->text(key) : std::nullopt;
}

std::string_view textOf(L10n::Key key, const LanguageTexts& own, const LanguageTexts& english) {
    if (const auto text = own.text(key)) return *text;
    if (const auto text = english.text(key)) return *text;
    return L10n::rawValue(key);
}

}  // namespace vtx
