// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

#include "language/L10n.h"

namespace vtx {

/// One line of a catalogue list.
struct TextEntry {
    L10n::Key key;
    const char* text;
};

/// The lists that a language is written in. Where a key stands in both, the additions' text wins.
struct TextLists {
    std::span<const TextEntry> base;
    std::span<const TextEntry> additions;
};

/// The texts of one language, by key. Flat, one view for each key (4 kB) into the lists, which it
/// does not copy, so that a lookup is one indexed read. Immutable, hence for any thread.
class TextTable {
public:
    /// Merges the lists, which must last for the run. A key that stands twice in the same list is a
    /// programming fault.
    explicit TextTable(const TextLists& lists);

    /// Absent where the language has no text for the key.
    [[nodiscard]] std::optional<std::string_view> text(L10n::Key key) const;

private:
    void lay(std::span<const TextEntry> list);

    std::array<std::string_view, L10n::keyCount> texts_;  ///< A view of nothing where absent.
};

/// All that a language can say of the keys: a platform's own words before those of the catalogue.
struct LanguageTexts {
    std::span<const TextEntry> wording;  ///< Few, if any.
    const TextTable* table = nullptr;    ///< Null for a language without texts.

    /// Absent where the language has no text for the key.
    [[nodiscard]] std::optional<std::string_view> text(L10n::Key key) const;
};

/// The text of a key: the language's own, else the English one, else the name of the key. Never
/// empty-handed, and valid for the run.
[[nodiscard]] std::string_view textOf(L10n::Key key, const LanguageTexts& own,
                                      const LanguageTexts& english);

}  // namespace vtx
