// SPDX-License-Identifier: MIT
#include "ui/models/LanguagePickerModel.h"

#include <gtest/gtest.h>

#include "language/Localization.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

struct Spoken {
    TestBench bench;
    Localization localization{bench.platform.locale};

    LanguagePickerModel in(Language language) {
        localization.setPreference(language);
        return describeLanguagePicker(localization);
    }
};

TEST(LanguagePickerModel, offers_thirteen_languages_in_order_and_not_automatic) {
    std::string offered;
    for (const auto& card : Spoken().in(Language::en).cards)
        offered.append(rawValue(card.language)).append(" ");
    EXPECT_EQ(offered, "en de fr es it pt nl pl ja zh tr ru ko ");
}

TEST(LanguagePickerModel, says_its_texts_in_english_on_a_new_installation) {
    const auto model = Spoken().in(Language::en);
    EXPECT_EQ(model.title, "Welcome to Vantrix");
    EXPECT_EQ(model.subtitle, "Choose your language. You can change it any time in Settings.");
    EXPECT_EQ(model.confirm, "Continue");
    EXPECT_EQ(model.changeHint, "You can change the language any time in Settings → Language.");
}

TEST(LanguagePickerModel, each_language_has_its_own_name_and_that_in_the_language_in_force) {
    Spoken spoken;
    EXPECT_EQ(spoken.in(Language::en).cards[1].nativeName, "Deutsch");
    EXPECT_EQ(spoken.in(Language::en).cards[1].label, "German");
    EXPECT_EQ(spoken.in(Language::fr).cards[1].nativeName, "Deutsch");
    EXPECT_EQ(spoken.in(Language::fr).cards[1].label, "Allemand");
    EXPECT_EQ(spoken.in(Language::de).confirm, "Weiter");
}

}  // namespace
}  // namespace vtx
