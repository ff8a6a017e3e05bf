// SPDX-License-Identifier: MIT
#include "ui/kit/DialogSheet.h"

#include <gtest/gtest.h>

#include <QPointer>

#include "ui/kit/Button.h"
#include "ui/kit/Surface.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

const DialogContent question{"", "Set it?", "It can be set back.", "Apply", "Cancel"};
const DialogContent notice{"exclamationmark.triangle.fill", "It failed", "For a reason.", "OK", ""};

struct DialogSheets : testing::Test {
    DialogSheets() {
        ground.resize(360, 500);
        test::show(ground);
    }
    DialogSheet& ask(const DialogContent& content) {
        sheet = new DialogSheet(ground, content, 12);
        QObject::connect(sheet, &DialogSheet::accepted, [this] { ++accepted; });
        QObject::connect(sheet, &DialogSheet::dismissed, [this] { ++dismissed; });
        test::settle();
        return *sheet;
    }
    [[nodiscard]] bool isGone() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return sheet.isNull();
    }

    Surface ground;
    QPointer<DialogSheet> sheet;
    int accepted = 0;
    int dismissed = 0;
};

TEST_F(DialogSheets, lies_over_all_of_its_ground_and_follows_its_size) {
    DialogSheet& dialog = ask(question);
    EXPECT_EQ(dialog.geometry(), ground.rect());
    ground.resize(500, 700);
    test::settle();
    EXPECT_EQ(dialog.geometry(), ground.rect());
    EXPECT_NEAR(dialog.shape().center().x(), 250, 1);
}

TEST_F(DialogSheets, its_buttons_stand_within_it_the_primary_one_last) {
    DialogSheet& dialog = ask(question);
    for (const Button* button : {&dialog.primary(), dialog.cancel()}) {
        ASSERT_NE(button, nullptr);
        EXPECT_TRUE(dialog.shape().contains(button->shape().translated(button->pos())));
        EXPECT_EQ(button->shape().height(), 28);
    }
    EXPECT_GT(dialog.primary().x(), dialog.cancel()->x());
}

TEST_F(DialogSheets, return_accepts_once_and_it_goes) {
    DialogSheet& dialog = ask(question);
    EXPECT_TRUE(dialog.primary().hasFocus());
    test::press(dialog.primary(), Qt::Key_Return);
    test::press(dialog, Qt::Key_Return);
    EXPECT_EQ(accepted, 1);
    EXPECT_EQ(dismissed, 0);
    EXPECT_TRUE(isGone());
}

TEST_F(DialogSheets, escape_dismisses_a_question_and_acknowledges_a_notice) {
    test::press(ask(question).primary(), Qt::Key_Escape);
    EXPECT_EQ(dismissed, 1);
    test::press(ask(notice).primary(), Qt::Key_Escape);
    EXPECT_EQ(accepted, 1);
    EXPECT_EQ(dismissed, 1);
}

TEST_F(DialogSheets, each_button_says_what_it_does) {
    ask(question).cancel()->pressWhole();
    EXPECT_EQ(dismissed, 1);
    ask(question).primary().pressWhole();
    EXPECT_EQ(accepted, 1);
}

TEST_F(DialogSheets, tab_stays_within_it) {
    QWidget other(&ground);
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    DialogSheet& dialog = ask(question);
    test::press(dialog.primary(), Qt::Key_Tab);
    EXPECT_TRUE(dialog.cancel()->hasFocus());
    test::press(*dialog.cancel(), Qt::Key_Tab);
    EXPECT_TRUE(dialog.primary().hasFocus());
    test::press(dialog.primary(), Qt::Key_Backtab);
    EXPECT_TRUE(dialog.cancel()->hasFocus());
}

TEST_F(DialogSheets, a_press_beside_it_changes_nothing) {
    DialogSheet& dialog = ask(question);
    test::click(dialog, {5, 5});
    EXPECT_EQ(accepted + dismissed, 0);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(DialogSheets, is_a_dialog_with_its_words_for_assistive_technology) {
    auto* spoken = QAccessible::queryAccessibleInterface(&ask(notice));
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->role(), QAccessible::Dialog);
    EXPECT_EQ(spoken->text(QAccessible::Name), "It failed");
    EXPECT_EQ(spoken->text(QAccessible::Description), "For a reason.");
    EXPECT_EQ(spoken->childCount(), 1);
}

TEST_F(DialogSheets, a_long_message_makes_it_taller_within_its_ground) {
    DialogContent wordy = notice;
    const int usual = ask(notice).shape().height();
    delete sheet;
    wordy.message = QString("Many words that go on. ").repeated(20);
    DialogSheet& dialog = ask(wordy);
    EXPECT_GT(dialog.shape().height(), usual);
    EXPECT_TRUE(dialog.rect().contains(dialog.shape()));
}

}  // namespace
}  // namespace vtx
