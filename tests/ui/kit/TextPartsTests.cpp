// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QProxyStyle>

#include "ui/kit/CardTitle.h"
#include "ui/kit/ClockTile.h"
#include "ui/kit/Figures.h"
#include "ui/kit/HeroNumber.h"
#include "ui/kit/PlaceholderCard.h"
#include "ui/kit/Spinner.h"
#include "ui/kit/TextBlock.h"
#include "ui/kit/WrappedText.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

QAccessibleInterface& spoken(QWidget& widget) {
    return *QAccessible::queryAccessibleInterface(&widget);
}

CardTitleContent cluster(const char* load) {
    return {.title = QStringLiteral("P-cores"),
            .symbol = QStringLiteral("p.circle.fill"),
            .trailing = QString::fromUtf8(load),
            .trailingStyle = TitleEnd::load};
}

TEST(WrappedText, breaks_between_words_and_at_line_feeds) {
    const QStringList lines =
        wrapped::lines(QStringLiteral("one two\nthree"), TextRole::caption, 1000);
    EXPECT_EQ(lines, QStringList({QStringLiteral("one two"), QStringLiteral("three")}));
    EXPECT_EQ(wrapped::lines(QStringLiteral("one two"), TextRole::caption, 30).size(), 2);
    EXPECT_EQ(wrapped::height({}, TextRole::caption, 100), 0);
}

TEST(WrappedText, a_word_that_is_too_long_breaks_and_none_of_it_is_lost) {
    const QString word(300, QLatin1Char('w'));
    const QStringList lines = wrapped::lines(word, TextRole::caption, 120);
    EXPECT_GT(lines.size(), 10);
    EXPECT_EQ(lines.join(QString()), word);
    for (const QString& line : lines) EXPECT_LE(textWidth(line, TextRole::caption), 120);
}

TEST(CardTitle, a_changed_load_repaints_the_end_alone) {
    CardTitle title;
    title.setContent(cluster("31 %"));
    title.resize(308, title.sizeHint().height());
    test::show(title);
    test::PaintRecorder recorder(title);
    title.setContent(cluster("9 %"));
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_GT(recorder.painted[0].boundingRect().left(), 150);
    title.setContent(cluster("9 %"));
    test::settle();
    EXPECT_EQ(recorder.painted.size(), 1U);
}

TEST(CardTitle, speaks_a_heading_and_what_stands_at_its_end) {
    CardTitle title;
    title.setContent(
        {.title = QStringLiteral("Health"), .pill = {.text = QStringLiteral("Excellent")}});
    ASSERT_EQ(spoken(title).childCount(), 2);
    EXPECT_EQ(spoken(title).child(0)->role(), QAccessible::Heading);
    EXPECT_EQ(spoken(title).child(0)->text(QAccessible::Name), QStringLiteral("Health"));
    EXPECT_EQ(spoken(title).child(1)->text(QAccessible::Name), QStringLiteral("Excellent"));
}

TEST(Figures, stand_in_columns_of_one_width) {
    Figures figures;
    figures.setFigures({{.label = QStringLiteral("Read"), .text = QStringLiteral("0 B/s")},
                        {.label = QStringLiteral("Write"), .text = QStringLiteral("9 B/s")}});
    figures.resize(308, figures.sizeHint().height());
    EXPECT_EQ(figures.partRect(0), QRect(0, 0, 154, figures.height()));
    EXPECT_EQ(figures.partRect(1).left(), 154 + 14);
    EXPECT_EQ(figures.partRect(1).right() + 1, 308);
    EXPECT_EQ(figures.sizeHint().height(), 14 + 2 + 28);
}

TEST(Figures, a_changed_figure_repaints_its_column_alone) {
    Figures figures;
    figures.setFigures({{.text = QStringLiteral("0 B/s")}, {.text = QStringLiteral("9 B/s")}});
    figures.resize(308, figures.sizeHint().height());
    test::show(figures);
    test::PaintRecorder recorder(figures);
    figures.setFigures({{.text = QStringLiteral("0 B/s")}, {.text = QStringLiteral("1 B/s")}});
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0], QRegion(figures.partRect(1)));
}

TEST(Figures, a_figure_too_wide_for_its_column_is_set_smaller_and_whole) {
    Figures figures;
    figures.setFigures({{.text = QStringLiteral("8888888888888")}, {.text = QStringLiteral("1")}});
    figures.resize(308, figures.sizeHint().height());
    const QImage image = test::picture(figures, 1);
    // Between the columns there is the hairline, and nothing of the figure runs over it.
    for (int y = 0; y < image.height(); ++y) EXPECT_EQ(image.pixelColor(160, y).alpha(), 0);
}

TEST(Figures, speak_their_label_and_everything_below) {
    Figures figures;
    figures.setFigures({{.label = QStringLiteral("Download"),
                         .text = QStringLiteral("8.4 MB/s"),
                         .caption = QStringLiteral("Received"),
                         .captionValue = QStringLiteral("6.31 GB")}});
    EXPECT_EQ(spoken(figures).child(0)->text(QAccessible::Name), QStringLiteral("Download"));
    EXPECT_EQ(spoken(figures).child(0)->text(QAccessible::Value),
              QStringLiteral("8.4 MB/s Received 6.31 GB"));
}

TEST(HeroNumber, speaks_its_label_and_every_text_there_is) {
    HeroNumber hero;
    hero.setContent({.label = QStringLiteral("used"),
                     .text = QStringLiteral("21.4 GB"),
                     .beside = QStringLiteral("of 32.0 GB"),
                     .pill = {.text = QStringLiteral("Warning")}});
    EXPECT_EQ(spoken(hero).child(0)->text(QAccessible::Name), QStringLiteral("used"));
    EXPECT_EQ(spoken(hero).child(0)->text(QAccessible::Value),
              QStringLiteral("21.4 GB, of 32.0 GB, Warning"));
}

TEST(HeroNumber, equal_content_paints_nothing) {
    HeroNumber hero;
    hero.setContent({.label = QStringLiteral("Total"), .text = QStringLiteral("23 %")});
    hero.resize(hero.sizeHint());
    test::show(hero);
    test::PaintRecorder recorder(hero);
    hero.setContent({.label = QStringLiteral("Total"), .text = QStringLiteral("23 %")});
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
}

TEST(ClockTile, speaks_its_clock_with_its_limit) {
    ClockTile tile;
    tile.setTexts(QStringLiteral("Idle"), QStringLiteral("max 2.42 GHz"));
    EXPECT_EQ(spoken(tile).child(0)->text(QAccessible::Name), QStringLiteral("Idle"));
    EXPECT_EQ(spoken(tile).child(0)->text(QAccessible::Value), QStringLiteral("max 2.42 GHz"));
}

TEST(PlaceholderCard, grows_with_its_texts_and_keeps_them_narrow) {
    PlaceholderCard card;
    card.setContent({.symbol = QStringLiteral("fan.slash"), .title = QStringLiteral("No fan")});
    const int small = card.heightForWidth(336);
    card.setContent({.symbol = QStringLiteral("fan.slash"),
                     .title = QStringLiteral("No fan"),
                     .body = QString(300, QLatin1Char('x'))});
    card.resize(600, card.heightForWidth(600));
    EXPECT_GT(card.height(), small);
    EXPECT_EQ(card.partRect(1).width(), 260);
}

TEST(TextBlock, takes_no_room_without_text) {
    TextBlock block;
    EXPECT_EQ(block.heightForWidth(300), 0);
    block.setContent({.text = QStringLiteral("A note")});
    EXPECT_EQ(block.heightForWidth(300), 15);
    EXPECT_EQ(spoken(block).text(QAccessible::Name), QStringLiteral("A note"));
}

/// A style with or without animations.
class Motion final : public QProxyStyle {
public:
    explicit Motion(int milliseconds) : milliseconds_(milliseconds) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_Widget_Animation_Duration) return milliseconds_;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    int milliseconds_;
};

TEST(Spinner, turns_only_while_it_is_shown) {
    Motion moving(200);
    Spinner spinner;
    spinner.setStyle(&moving);
    EXPECT_FALSE(spinner.isTurning());
    spinner.show();
    EXPECT_TRUE(spinner.isTurning());
    spinner.hide();
    EXPECT_FALSE(spinner.isTurning());
}

TEST(Spinner, stands_still_where_less_motion_is_wanted) {
    Motion still(0);
    Spinner spinner;
    spinner.setStyle(&still);
    spinner.show();
    EXPECT_FALSE(spinner.isTurning());
}

}  // namespace
}  // namespace vtx
