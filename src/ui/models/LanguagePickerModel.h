// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include "language/Language.h"

namespace vtx {

class Localization;

/// The languages that a first start offers, in their order.
inline constexpr std::array offeredLanguages{
    Language::en, Language::de, Language::fr, Language::es, Language::it,
    Language::pt, Language::nl, Language::pl, Language::ja, Language::zh,
    Language::tr, Language::ru, Language::ko,
};

/// One language to choose.
struct LanguageCard {
    Language language = Language::en;
    std::string_view nativeName;  ///< in the language itself
    std::string_view label;       ///< in the language in force

    friend bool operator==(const LanguageCard&, const LanguageCard&) = default;
};

/// All that the first start's choice of a language says, in the language in force.
struct LanguagePickerModel {
    std::string_view title;
    std::string_view subtitle;
    std::string_view changeHint;
    std::string_view confirm;
    std::array<LanguageCard, offeredLanguages.size()> cards;

    friend bool operator==(const LanguagePickerModel&, const LanguagePickerModel&) = default;
};

LanguagePickerModel describeLanguagePicker(const Localization& localization);

}  // namespace vtx
