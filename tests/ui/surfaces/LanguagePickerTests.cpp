// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <vector>

#include "SurfaceBench.h"
#include "ui/kit/Button.h"
#include "ui/models/LanguagePickerModel.h"
#include "ui/surfaces/LanguageCards.h"
#include "ui/surfaces/LanguagePickerView.h"
#include "ui/surfaces/LanguagePickerWindowController.h"

namespace vtx {
namespace {

class LanguagePickerTest : public testing::Test {
protected:
    test::SurfaceBench bench;
    LanguagePickerWindowController picker{"Vantrix"};
    std::vector<Language> chosen;

    void present(Language initial) {
        picker.present(initial, [this](Language language) {
            chosen.push_back(language);
            wasUpWhenTold = picker.window() != nullptr;
        });
        test::show(*picker.window());
    }
    [[nodiscard]] LanguagePickerView& view() {
        return static_cast<LanguagePickerView&>(*picker.window());
    }
    [[nodiscard]] LanguageCards& cards() { return *view().findChild<LanguageCards*>(); }
    [[nodiscard]] Button& button() { return *view().findChild<Button*>(); }
    [[nodiscard]] int marked() {
        for (int i = 0; i < cards().partCount(); ++i)
            if (cards().part(i).selected) return i;
        return -1;
    }

    bool wasUpWhenTold = true;
};

using Chosen = std::vector<Language>;

TEST_F(LanguagePickerTest, has_a_title_and_nothing_that_closes_it) {
    present(Language::en);
    EXPECT_EQ(picker.window()->windowTitle(), "Vantrix");
    const auto flags = picker.window()->windowFlags();
    EXPECT_TRUE(flags.testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(flags & (Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint));
    EXPECT_EQ(picker.window()->width(), 520);
    EXPECT_EQ(picker.window()->minimumSize(), picker.window()->maximumSize());
    EXPECT_TRUE(
        bench.log.contains(LogLevel::info, "LanguagePicker", "First-run language picker shown"));
}

TEST_F(LanguagePickerTest, offers_thirteen_cards_with_the_initial_one_marked) {
    present(Language::ja);
    EXPECT_EQ(cards().partCount(), 13);
    EXPECT_EQ(cards().part(marked()).name, "日本語");
    EXPECT_EQ(cards().part(marked()).value, "Japanese");
}

TEST_F(LanguagePickerTest, return_confirms_the_initial_language_when_no_card_was_touched) {
    present(Language::fr);
    test::press(cards(), Qt::Key_Return);
    EXPECT_EQ(chosen, Chosen{Language::fr});
    EXPECT_FALSE(wasUpWhenTold) << "the window goes before its owner is told";
}

TEST_F(LanguagePickerTest, a_clicked_card_is_marked_and_taken_only_by_the_button) {
    present(Language::en);
    test::click(cards(), cards().partRect(1).center());
    EXPECT_EQ(marked(), 1);
    EXPECT_EQ(view().selection(), Language::de);
    EXPECT_TRUE(chosen.empty());
    EXPECT_EQ(*Localization::shared().effective, Language::en);
    test::click(button(), button().rect().center());
    EXPECT_EQ(chosen, Chosen{Language::de});
}

TEST_F(LanguagePickerTest, the_whole_of_a_card_can_be_clicked) {
    present(Language::en);
    const QRect card = cards().partRect(12);
    for (const QPoint corner : {card.topLeft(), card.bottomRight()}) {
        test::click(cards(), cards().partRect(0).center());
        test::click(cards(), corner);
        EXPECT_EQ(marked(), 12);
    }
}

TEST_F(LanguagePickerTest, arrows_move_the_mark_over_the_grid_and_stop_at_its_edges) {
    present(Language::en);
    const std::pair<int, int> steps[] = {{Qt::Key_Right, 1}, {Qt::Key_Down, 3},  {Qt::Key_Left, 2},
                                         {Qt::Key_Up, 0},    {Qt::Key_Up, 0},    {Qt::Key_Left, 0},
                                         {Qt::Key_End, 12},  {Qt::Key_Down, 12}, {Qt::Key_Up, 10},
                                         {Qt::Key_Home, 0}};
    for (const auto& [key, expected] : steps) {
        test::press(cards(), key);
        EXPECT_EQ(marked(), expected);
    }
    EXPECT_TRUE(cards().showsFocus());
}

TEST_F(LanguagePickerTest, the_cards_are_one_stop_and_the_button_the_next) {
    present(Language::en);
    EXPECT_TRUE(cards().hasFocus());
    EXPECT_FALSE(cards().showsFocus()) << "nobody has used the keyboard yet";
    test::press(cards(), Qt::Key_Tab);
    EXPECT_TRUE(button().hasFocus());
    test::press(button(), Qt::Key_Return);
    EXPECT_EQ(chosen, Chosen{Language::en});
}

TEST_F(LanguagePickerTest, automatic_marks_no_card_and_is_confirmed_as_it_is) {
    present(Language::automatic);
    EXPECT_EQ(marked(), -1);
    test::press(cards(), Qt::Key_Return);
    EXPECT_EQ(chosen, Chosen{Language::automatic});
}

TEST_F(LanguagePickerTest, with_no_card_marked_space_marks_the_first) {
    present(Language::automatic);
    test::press(cards(), Qt::Key_Space);
    EXPECT_EQ(marked(), 0);
}

TEST_F(LanguagePickerTest, presented_twice_it_is_one_window_as_it_was) {
    present(Language::en);
    QWidget* first = picker.window();
    test::press(cards(), Qt::Key_Right);
    present(Language::fr);
    EXPECT_EQ(picker.window(), first);
    EXPECT_EQ(marked(), 1);
}

TEST_F(LanguagePickerTest, escape_does_not_close_it) {
    present(Language::en);
    test::press(cards(), Qt::Key_Escape);
    EXPECT_TRUE(picker.window()->isVisible());
    EXPECT_TRUE(chosen.empty());
}

TEST_F(LanguagePickerTest, says_its_texts_in_the_language_in_force) {
    present(Language::en);
    EXPECT_EQ(picker.window()->accessibleName(), "Welcome to Vantrix");
    bench.change([](auto& p) { p.languageCode = "de"; });
    EXPECT_EQ(picker.window()->accessibleName(), "Willkommen bei Vantrix");
    EXPECT_EQ(button().accessibleName(), "Weiter");
    EXPECT_EQ(cards().part(2).name, "Français");
    EXPECT_EQ(cards().part(2).value, "Französisch");
}

TEST_F(LanguagePickerTest, its_cards_are_radio_buttons_for_a_screen_reader) {
    present(Language::en);
    auto* german = test::spokenAs(*picker.window(), "Deutsch");
    ASSERT_TRUE(german);
    EXPECT_EQ(german->role(), QAccessible::RadioButton);
    EXPECT_FALSE(german->state().checked);
    cards().pressPart(1);
    EXPECT_TRUE(german->state().checked);
}

TEST_F(LanguagePickerTest, presented_again_it_comes_before_what_the_user_turned_to) {
    present(Language::en);
    QWidget other;
    test::show(other);
    ASSERT_FALSE(picker.window()->isActiveWindow());
    picker.present(Language::en, [](Language) {});
    test::settle();
    EXPECT_TRUE(picker.window()->isActiveWindow());
}

TEST_F(LanguagePickerTest, everything_fits_in_every_language) {
    present(Language::en);
    for (const Language language : offeredLanguages) {
        bench.change([language](auto& p) { p.languageCode = rawValue(language); });
        test::settle();
        const QRect footer = view().partRect(1), press = button().geometry();
        EXPECT_LE(footer.right(), press.left()) << rawValue(language);
        EXPECT_LE(press.bottom(), view().height()) << rawValue(language);
        EXPECT_GE(footer.top(), cards().geometry().bottom()) << rawValue(language);
    }
}

}  // namespace
}  // namespace vtx
