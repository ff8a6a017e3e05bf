// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vtx {

/// What the language of the interface can be set to.
enum class Language : std::uint8_t {
    automatic,  ///< By the system's first preferred language; raw text "auto".
    de,
    en,
    fr,
    es,
    it,
    pt,
    nl,
    pl,
    ja,
    zh,
    tr,
    ru,
    ko,
};

/// Every setting, in the order in which they are offered.
inline constexpr std::array allLanguages{
    Language::automatic, Language::de, Language::en, Language::fr, Language::es,
    Language::it,        Language::pt, Language::nl, Language::pl, Language::ja,
    Language::zh,        Language::tr, Language::ru, Language::ko,
};

/// The place of a language in a list of one entry per language.
constexpr std::size_t indexOf(Language language) { return static_cast<std::size_t>(language); }

/// The text under which a language is stored, such as "de".
[[nodiscard]] std::string_view rawValue(Language language);

/// The language of that raw text, spelled exactly; absent where there is none.
[[nodiscard]] std::optional<Language> languageFromRawValue(std::string_view rawValue);

/// The language that a stored code stands for: English, not `automatic`, where it is unknown.
[[nodiscard]] Language languageFromStoredCode(std::string_view code);

/// The supported language that a BCP 47 tag begins with, English where it begins with none. Script
/// and region play no part. Never `automatic`.
[[nodiscard]] Language languageOfTag(std::string_view tag);

/// What a language calls itself, such as "Deutsch".
[[nodiscard]] std::string_view nativeName(Language language);

/// What a language is called in the language `display`, where `automatic` counts as English.
[[nodiscard]] std::string_view displayLabel(Language language, Language display);

}  // namespace vtx
