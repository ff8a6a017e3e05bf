// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>

#include "ui/kit/KeyValueRows.h"
#include "ui/kit/ListRows.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

KeyValueRow property(const char* label, const char* value) {
    return {.label = QString::fromUtf8(label), .value = QString::fromUtf8(value)};
}

ListRow consumer(const char* name, const char* size, double share) {
    return {.title = QString::fromUtf8(name),
            .values = {{.text = QString::fromUtf8(size)}},
            .bar = share};
}

class RowsTest : public testing::Test {
protected:
    void show(QWidget& list) {
        list.resize(308, list.sizeHint().height());
        test::show(list);
    }
    static QAccessibleInterface& spoken(QWidget& list) {
        return *QAccessible::queryAccessibleInterface(&list);
    }

    test::FixedTheme theme{Appearance::dark};
    KeyValueRows properties;
    ListRows interfaces{ListKind::oneLine};
    ListRows volumes{ListKind::twoLine};
    ListRows consumers{ListKind::withBar};
};

TEST_F(RowsTest, rows_have_the_height_of_their_kind) {
    properties.setRows({property("Size", "32 GB"), property("Speed", "—")});
    interfaces.setRows({{.title = QStringLiteral("en0")}});
    volumes.setRows({{.title = QStringLiteral("Data")}});
    consumers.setRows({consumer("node", "1 GB", 0.1)});
    EXPECT_EQ(properties.sizeHint().height(), 2 * 26);
    EXPECT_EQ(interfaces.sizeHint().height(), 32);
    EXPECT_EQ(volumes.sizeHint().height(), 42);
    EXPECT_EQ(consumers.sizeHint().height(), 33);
}

TEST_F(RowsTest, a_changed_value_repaints_its_row_alone) {
    properties.setRows({property("Size", "32 GB"), property("Speed", "—")});
    show(properties);
    test::PaintRecorder recorder(properties);
    properties.setRows({property("Size", "32 GB"), property("Speed", "6400")});
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0], QRegion(properties.partRect(1)));
}

TEST_F(RowsTest, equal_rows_paint_nothing_even_where_a_bar_is_no_number) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    consumers.setRows({consumer("node", "1 GB", nan), consumer("zsh", "2 MB", 3)});
    show(consumers);
    test::PaintRecorder recorder(consumers);
    consumers.setRows({consumer("node", "1 GB", nan), consumer("zsh", "2 MB", 3)});
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
}

TEST_F(RowsTest, a_longer_name_moves_the_captions_of_every_row) {
    interfaces.setRows({{.title = QStringLiteral("en0"), .caption = QStringLiteral("Wi-Fi")},
                        {.title = QStringLiteral("en5"), .caption = QStringLiteral("Ethernet")}});
    show(interfaces);
    test::PaintRecorder recorder(interfaces);
    interfaces.setRows(
        {{.title = QStringLiteral("en0"), .caption = QStringLiteral("Wi-Fi")},
         {.title = QStringLiteral("a-long-bridge0"), .caption = QStringLiteral("Other")}});
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0].boundingRect(), interfaces.rect());
}

TEST_F(RowsTest, captions_stay_whole_and_names_give_way) {
    const ListRow cellular{.title = QStringLiteral("pdp_ip0"),
                           .caption = QStringLiteral("A caption of some length"),
                           .values = {{.text = QStringLiteral("Inactive")}}};
    const auto inkOfFirstBeside = [&](const char* other) {
        interfaces.setRows({cellular, {.title = QString::fromLatin1(other)}});
        show(interfaces);
        const QImage row = test::picture(interfaces, 1).copy(interfaces.partRect(0));
        qint64 ink = 0;
        for (int y = 0; y < row.height(); ++y)
            for (int x = 0; x < row.width(); ++x) ink += qAlpha(row.pixel(x, y));
        return ink;
    };
    EXPECT_EQ(inkOfFirstBeside("en0"), inkOfFirstBeside("br-0123456789abcdef0123456789abcdef"));
}

TEST_F(RowsTest, a_bar_is_as_long_as_its_share) {
    consumers.setRows({consumer("node", "1 GB", 0.5)});
    show(consumers);
    const QImage image = test::picture(consumers, 1);
    const QColor tint = Theme::current().color(ColorToken::accent);
    EXPECT_EQ(image.pixelColor(100, 24), tint);
    EXPECT_NE(image.pixelColor(200, 24), tint);
}

TEST_F(RowsTest, marks_say_by_shape_what_they_say_by_colour) {
    const auto picture = [this](StateMark mark) {
        interfaces.setRows({{.title = QStringLiteral("en0"),
                             .mark = mark,
                             .values = {{.text = QStringLiteral("Active")}}}});
        show(interfaces);
        return test::picture(interfaces, 2);
    };
    const QImage filled = picture(StateMark::filled);
    EXPECT_NE(filled, picture(StateMark::hollow));
    EXPECT_NE(filled, picture(StateMark::none));
}

TEST_F(RowsTest, a_swatch_stands_in_front_of_its_label) {
    KeyValueRow row = property("Wired", "3.1 GB");
    row.swatch = ColorToken::memoryWired;
    properties.setRows({row});
    show(properties);
    const QImage image = test::picture(properties, 1);
    EXPECT_EQ(image.pixelColor(5, 13), Theme::current().color(ColorToken::memoryWired));
}

TEST_F(RowsTest, each_row_speaks_everything_it_shows) {
    volumes.setRows(
        {{.title = QStringLiteral("Data"),
          .caption = QStringLiteral("disk0"),
          .values = {{.text = QStringLiteral("1.9 GB"), .label = QStringLiteral("Read")},
                     {.text = QStringLiteral("846 MB"), .label = QStringLiteral("Write")}}}});
    EXPECT_EQ(spoken(volumes).role(), QAccessible::List);
    ASSERT_EQ(spoken(volumes).childCount(), 1);
    EXPECT_EQ(spoken(volumes).child(0)->text(QAccessible::Name), QStringLiteral("Data"));
    EXPECT_EQ(spoken(volumes).child(0)->text(QAccessible::Value),
              QStringLiteral("disk0, Read 1.9 GB, Write 846 MB"));
    EXPECT_EQ(spoken(volumes).child(0)->role(), QAccessible::ListItem);
}

}  // namespace
}  // namespace vtx
