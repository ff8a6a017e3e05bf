// SPDX-License-Identifier: MIT
#include "ui/kit/TextField.h"

#include <gtest/gtest.h>

#include <QAction>

#include "ui/kit/Metrics.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

/// A field in a window that counts the Escapes that it was left.
struct TextFields : testing::Test {
    struct Window : QWidget {
        int escapes = 0;
        void keyPressEvent(QKeyEvent* event) override { escapes += event->key() == Qt::Key_Escape; }
    };
    TextFields() {
        window.resize(200, 60);
        field.setPlaceholder("Filter");
        field.setGeometry(10, 10, 180, metrics::fieldHeight);
        test::show(window);
        field.setFocus();
    }
    [[nodiscard]] bool paints(ColorToken token) {
        const QImage image = test::picture(field, 1.0);
        const QColor wanted = Theme::current().color(token);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == wanted) return true;
        return false;
    }

    test::FixedTheme theme{Appearance::dark};
    Window window;
    TextField field{TextField::Frame::plain, &window};
};

TEST_F(TextFields, is_called_by_its_placeholder) {
    EXPECT_EQ(field.placeholderText(), "Filter");
    EXPECT_EQ(field.accessibleName(), "Filter");
    EXPECT_EQ(field.height(), 28);
}

TEST_F(TextFields, escape_empties_it_first_and_then_goes_on) {
    field.setText("node");
    test::press(field, Qt::Key_Escape);
    EXPECT_EQ(field.text(), "");
    EXPECT_EQ(window.escapes, 0);
    test::press(field, Qt::Key_Escape);
    EXPECT_EQ(window.escapes, 1);
}

TEST_F(TextFields, the_cross_is_there_with_a_text_alone_and_empties_it) {
    QAction* cross = field.actions().value(0);
    ASSERT_NE(cross, nullptr);
    EXPECT_FALSE(cross->isVisible());
    field.setText("x");
    EXPECT_TRUE(cross->isVisible());
    cross->trigger();
    EXPECT_EQ(field.text(), "");
}

TEST_F(TextFields, down_leads_on_below_it) {
    int told = 0;
    QObject::connect(&field, &TextField::movedDown, [&told] { ++told; });
    test::press(field, Qt::Key_Down);
    test::press(field, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(told, 1);
}

TEST_F(TextFields, the_caret_has_the_accent_and_shows_only_with_the_keyboard) {
    EXPECT_TRUE(paints(ColorToken::accent));
    field.clearFocus();
    EXPECT_FALSE(paints(ColorToken::accent));
}

TEST_F(TextFields, a_plain_one_shows_its_ground_and_one_in_a_box_its_own) {
    field.clearFocus();
    EXPECT_EQ(test::picture(field, 1.0).pixelColor(90, 3).alpha(), 0);
    TextField boxed(TextField::Frame::box, &window);
    boxed.resize(180, metrics::fieldHeight);
    EXPECT_EQ(test::picture(boxed, 1.0).pixelColor(90, 4),
              Theme::current().color(ColorToken::field));
}

TEST_F(TextFields, follows_the_theme) {
    theme.set(Appearance::light);
    EXPECT_EQ(field.palette().color(QPalette::Text), Theme::current().color(ColorToken::text1));
}

}  // namespace
}  // namespace vtx
