// SPDX-License-Identifier: MIT
#include "ui/kit/PerCoreBars.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

PerCoreContent cores(int count, double first = 0.5) {
    PerCoreContent content{.symbol = QStringLiteral("cpu"),
                           .title = QStringLiteral("Per core"),
                           .count = QStringLiteral("%1 Cores").arg(count),
                           .cores = {},
                           .tint = ColorToken::pCore};
    for (int i = 0; i < count; ++i) {
        const double value = i == 0 ? first : 0.25;
        content.cores.push_back({QStringLiteral("P%1").arg(i + 1), value,
                                 QStringLiteral("%1 %").arg(qRound(value * 100))});
    }
    return content;
}

class PerCoreBarsTest : public testing::Test {
protected:
    PerCoreBarsTest() { show(cores(4)); }

    void show(const PerCoreContent& content, int width = 308) {
        bars.setContent(content);
        bars.resize(width, bars.heightForWidth(width));
        test::show(bars);
    }

    test::FixedTheme theme{Appearance::dark};
    PerCoreBars bars;
};

TEST_F(PerCoreBarsTest, few_cores_stand_in_one_column_at_any_width) {
    EXPECT_EQ(bars.columnsFor(308), 1);
    EXPECT_EQ(bars.columnsFor(2000), 1);
    EXPECT_EQ(bars.heightForWidth(308), 22 + 4 * 21);
}

TEST_F(PerCoreBarsTest, many_cores_stand_in_as_many_columns_as_the_width_allows) {
    bars.setContent(cores(16));
    EXPECT_EQ(bars.columnsFor(308), 2);
    EXPECT_EQ(bars.heightForWidth(308), 22 + 8 * 21);
    EXPECT_EQ(bars.columnsFor(150), 1);
    bars.setContent(cores(128));
    EXPECT_GE(bars.columnsFor(308), 2);
    EXPECT_GT(bars.columnsFor(508), bars.columnsFor(308));
}

TEST_F(PerCoreBarsTest, no_two_cores_share_a_place_and_all_lie_within) {
    for (const int width : {40, 150, 308, 508, 900}) {
        show(cores(128), width);
        QRegion taken;
        for (int i = 0; i < bars.partCount(); ++i) {
            EXPECT_FALSE(taken.intersects(bars.partRect(i))) << width << ' ' << i;
            taken += bars.partRect(i);
        }
        EXPECT_TRUE(bars.rect().contains(taken.boundingRect())) << width;
    }
}

TEST_F(PerCoreBarsTest, a_changed_core_repaints_its_row_alone) {
    test::PaintRecorder recorder(bars);
    bars.setContent(cores(4, 0.6));
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0], QRegion(bars.partRect(0)));
}

TEST_F(PerCoreBarsTest, equal_content_paints_nothing_even_where_a_value_is_no_number) {
    PerCoreContent content = cores(4);
    content.cores[1].value = std::numeric_limits<double>::quiet_NaN();
    show(content);
    test::PaintRecorder recorder(bars);
    bars.setContent(content);
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
}

TEST_F(PerCoreBarsTest, the_bar_lies_between_label_and_percentage) {
    show(cores(1, 1));
    const QImage image = test::picture(bars, 1);
    const QColor card = Theme::current().color(ColorToken::pCore, 0.85F);
    const int y = bars.partRect(0).center().y();
    EXPECT_NEAR(image.pixelColor(26 + 4, y).alpha(), card.alpha(), 60);
    EXPECT_GT(image.pixelColor(308 - 38 - 4, y).alpha(), card.alpha() - 10);
    EXPECT_EQ(image.pixelColor(308 - 38 + 1, y).alpha(), 0);
}

TEST_F(PerCoreBarsTest, the_list_is_called_by_its_title_and_count) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&bars);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Per core, 4 Cores"));
    bars.setContent(cores(8));
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Per core, 8 Cores"));
}

TEST_F(PerCoreBarsTest, each_core_speaks_its_label_and_its_load) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&bars);
    EXPECT_EQ(spoken->role(), QAccessible::List);
    ASSERT_EQ(spoken->childCount(), 4);
    EXPECT_EQ(spoken->child(0)->text(QAccessible::Name), QStringLiteral("P1"));
    EXPECT_EQ(spoken->child(0)->text(QAccessible::Value), QStringLiteral("50 %"));
}

}  // namespace
}  // namespace vtx
