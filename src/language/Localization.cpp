// SPDX-License-Identifier: MIT
#include "language/Localization.h"

#include "base/Shared.h"
#include "language/Catalogue.h"
#include "platform/Locale.h"

namespace vtx {

Localization::Localization(const Locale& locale, PlatformWording wording)
    : locale_(locale), wording_(wording) {
    recomputeEffective();
}

void Localization::setPreference(Language language) {
    if (language == preference.get()) return;
    preference = language;
    recomputeEffective();
}

std::string_view Localization::string(L10n::Key key) const {
    return textOf(key, textsOf(effective.get()), textsOf(Language::en));
}

std::string Localization::timeOfDay(Date date) const { return locale_.timeOfDay(date); }

Localization& Localization::shared() { return Shared<Localization>::get(); }

LanguageTexts Localization::textsOf(Language language) const {
    return {wording_ ? wording_(language) : std::span<const TextEntry>{},
            catalogue::table(language)};
}

void Localization::recomputeEffective() {
    const Language chosen = preference.get();
    effective = chosen == Language::automatic ? systemLanguage() : chosen;
}

// Only the first entry counts, even where a later one is supported and it is not.
Localization::Language Localization::systemLanguage() const {
    const auto preferred = locale_.preferredLanguages();
    return preferred.empty() ? Language::en : languageOfTag(preferred.front());
}

}  // namespace vtx
