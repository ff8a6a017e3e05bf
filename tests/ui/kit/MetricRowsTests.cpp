// SPDX-License-Identifier: MIT
#include "ui/kit/MetricRows.h"

#include <gtest/gtest.h>

#include <cmath>

#include "ui/kit/Theme.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

MetricRow row(const char* title, const char* value, ColorToken tint = ColorToken::text1) {
    return {QStringLiteral("cpu"), QString::fromUtf8(title), QString::fromUtf8(value), tint};
}

class MetricRowsTest : public testing::Test {
protected:
    MetricRowsTest() {
        list.setRows({row("CPU", "34 %"), row("GPU", "12 %"), row("Swap", "—")});
        list.resize(300, list.sizeHint().height());
        test::show(list);
    }

    QAccessibleInterface& spoken() { return *QAccessible::queryAccessibleInterface(&list); }

    test::FixedTheme theme{Appearance::dark};
    MetricRows list;
};

TEST_F(MetricRowsTest, a_changed_value_repaints_its_row_alone) {
    test::PaintRecorder recorder(list);
    list.setRows({row("CPU", "34 %"), row("GPU", "13 %"), row("Swap", "—")});
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0], QRegion(list.partRect(1)));
}

TEST_F(MetricRowsTest, a_changed_tint_repaints_its_row_alone) {
    test::PaintRecorder recorder(list);
    list.setRows({row("CPU", "34 %", ColorToken::red), row("GPU", "12 %"), row("Swap", "—")});
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0], QRegion(list.partRect(0)));
}

TEST_F(MetricRowsTest, equal_rows_repaint_nothing) {
    test::PaintRecorder recorder(list);
    list.setRows({row("CPU", "34 %"), row("GPU", "12 %"), row("Swap", "—")});
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
}

TEST_F(MetricRowsTest, only_the_number_of_rows_changes_the_height) {
    EXPECT_EQ(list.sizeHint().height(), 3 * 27);
    list.setRows({row("A title of quite another length", "100 %"), row("GPU", "1"), row("C", "")});
    EXPECT_EQ(list.sizeHint().height(), 3 * 27);
    list.setRows({row("CPU", "34 %")});
    EXPECT_EQ(list.sizeHint().height(), 27);
}

TEST_F(MetricRowsTest, a_new_appearance_repaints_everything) {
    test::PaintRecorder recorder(list);
    theme.set(Appearance::light);
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0].boundingRect(), list.rect());
}

TEST_F(MetricRowsTest, the_value_wears_its_tint) {
    list.setRows({row("CPU", "88 %", ColorToken::red)});
    const QImage image = test::picture(list, 2);
    const QRgb red = Theme::current().color(ColorToken::red).rgb();
    bool found = false;
    for (int y = 0; y < 54; ++y) {
        for (int x = image.width() / 2; x < image.width(); ++x) found |= image.pixel(x, y) == red;
    }
    EXPECT_TRUE(found);
}

TEST_F(MetricRowsTest, there_is_a_line_between_rows_and_none_after_the_last) {
    const int line = Theme::current().color(ColorToken::separator).alpha();
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0}) {
        const QImage image = test::picture(list, scale);
        const auto rowAt = [scale](int y) { return static_cast<int>(std::round(y * scale)) - 1; };
        EXPECT_EQ(qAlpha(image.pixel(image.width() / 2, rowAt(27))), line) << scale;
        EXPECT_EQ(qAlpha(image.pixel(image.width() / 2, rowAt(54))), line) << scale;
        EXPECT_NE(qAlpha(image.pixel(image.width() / 2, rowAt(81))), line) << scale;
    }
}

TEST_F(MetricRowsTest, each_row_speaks_its_title_and_its_value) {
    EXPECT_EQ(spoken().role(), QAccessible::List);
    ASSERT_EQ(spoken().childCount(), 3);
    EXPECT_EQ(spoken().child(0)->text(QAccessible::Name), QStringLiteral("CPU"));
    EXPECT_EQ(spoken().child(0)->text(QAccessible::Value), QStringLiteral("34 %"));
    EXPECT_EQ(spoken().child(0)->text(QAccessible::Description), QStringLiteral("34 %"));
    EXPECT_EQ(spoken().child(0)->role(), QAccessible::ListItem);
    EXPECT_EQ(spoken().child(0)->actionInterface(), nullptr);
    list.setRows({row("CPU", "35 %"), row("GPU", "12 %"), row("Swap", "—")});
    EXPECT_EQ(spoken().child(0)->text(QAccessible::Value), QStringLiteral("35 %"));
}

TEST_F(MetricRowsTest, reads_from_right_to_left_where_the_language_does) {
    const QImage before = test::picture(list, 1);
    list.setLayoutDirection(Qt::RightToLeft);
    const QImage after = test::picture(list, 1);
    const QRect symbol(0, 0, 20, 26);
    const QRect atRight(280, 0, 20, 26);
    EXPECT_EQ(after.copy(atRight), before.copy(symbol));
}

}  // namespace
}  // namespace vtx
