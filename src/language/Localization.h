// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "base/Date.h"
#include "base/ObservableObject.h"
#include "base/Published.h"
#include "language/L10n.h"
#include "language/Language.h"
#include "language/PlatformWording.h"

namespace vtx {

class Locale;

/// Decides which language is in force and answers every request for a display text. Views observe
/// it and ask for their texts when they draw, keeping none, so a change applies at once. It stores
/// nothing: the choice is a preference, and its owner tells it here. Main executor; one for the
/// process, made on first use, lasting for the run.
class Localization : public ObservableObject {
public:
    using Language = vtx::Language;

    /// The locale must outlive the object. It is asked here and when the preference becomes
    /// `automatic`, never in between. The wording, where there is one, goes before the catalogue.
    explicit Localization(const Locale& locale, PlatformWording wording = nullptr);

    /// What the user chose. Changed through `setPreference` alone.
    Published<Language> preference{*this, Language::automatic};
    /// What is in force, never `automatic`. Told at each change of the preference, even where it
    /// stays the same.
    Published<Language> effective{*this, Language::en};

    /// Takes a choice of the user; the present one again tells nobody.
    void setPreference(Language language);

    /// The text of a key in the language in force, else in English. Placeholders are left in it
    /// for the caller to fill. Valid for the run.
    [[nodiscard]] std::string_view string(L10n::Key key) const;

    /// Hour, minute and second as the user writes them, whatever the language in force.
    [[nodiscard]] std::string timeOfDay(Date date) const;

    /// The process's own, made by the factory registered with `Shared<Localization>`.
    [[nodiscard]] static Localization& shared();

private:
    void recomputeEffective();
    [[nodiscard]] Language systemLanguage() const;

    [[nodiscard]] LanguageTexts textsOf(Language language) const;

    const Locale& locale_;
    const PlatformWording wording_;
};

}  // namespace vtx
