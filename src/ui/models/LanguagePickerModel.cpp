// SPDX-License-Identifier: MIT
#include "ui/models/LanguagePickerModel.h"

#include "language/Localization.h"

namespace vtx {

LanguagePickerModel describeLanguagePicker(const Localization& localization) {
    LanguagePickerModel model;
    model.title = localization.string(L10n::Key::firstRun_title);
    model.subtitle = localization.string(L10n::Key::firstRun_subtitle);
    model.changeHint = localization.string(L10n::Key::firstRun_changeHint);
    model.confirm = localization.string(L10n::Key::firstRun_continue);
    for (std::size_t i = 0; i < offeredLanguages.size(); ++i) {
        const Language language = offeredLanguages[i];
        model.cards[i] = {language, nativeName(language),
                          displayLabel(language, *localization.effective)};
    }
    return model;
}

}  // namespace vtx
