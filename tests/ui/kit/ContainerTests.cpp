// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QScrollBar>
#include <QVBoxLayout>
#include <memory>

#include "ui/kit/Card.h"
#include "ui/kit/KitPage.h"
#include "ui/kit/OverlayScrollBar.h"
#include "ui/kit/ScrollArea.h"
#include "ui/kit/SectionHead.h"
#include "ui/kit/Surface.h"
#include "ui/kit/Theme.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

class ScrollAreaTest : public testing::Test {
protected:
    ScrollAreaTest() {
        auto contents = std::make_unique<QWidget>();
        contents->setMinimumHeight(1000);
        area.setContents(contents.release());
        area.resize(360, 200);
        test::show(area);
    }

    ScrollArea area;
};

OverlayScrollBar* barOf(const ScrollArea& area) {
    for (QObject* child : area.children()) {
        if (auto* bar = dynamic_cast<OverlayScrollBar*>(child)) return bar;
    }
    return nullptr;
}

TEST_F(ScrollAreaTest, the_contents_have_the_whole_width) {
    EXPECT_EQ(area.widget()->width(), 360);
}

TEST_F(ScrollAreaTest, the_thumb_is_thin_and_near_the_edge) {
    const QRect thumb = barOf(area)->thumbRect().translated(barOf(area)->pos());
    EXPECT_EQ(thumb.width(), 5);
    EXPECT_EQ(area.width() - thumb.right() - 1, 3);
}

TEST_F(ScrollAreaTest, the_thumb_travels_with_the_contents_from_end_to_end) {
    OverlayScrollBar& bar = *barOf(area);
    EXPECT_EQ(bar.thumbRect().top(), 3);
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
    EXPECT_EQ(bar.thumbRect().bottom() + 1, 200 - 3);
}

TEST_F(ScrollAreaTest, the_thumb_is_seen_while_scrolling_and_goes_afterwards) {
    OverlayScrollBar& bar = *barOf(area);
    EXPECT_FALSE(bar.isThumbShown());
    area.verticalScrollBar()->setValue(40);
    EXPECT_TRUE(bar.isThumbShown());
    QMetaObject::invokeMethod(&bar.hideTimer(), "timeout");
    EXPECT_FALSE(bar.isThumbShown());
}

TEST_F(ScrollAreaTest, a_thumb_that_is_not_seen_is_not_painted_as_the_contents_grow) {
    OverlayScrollBar& bar = *barOf(area);
    area.widget()->setAttribute(Qt::WA_StaticContents);
    test::PaintRecorder recorder(bar);
    area.widget()->setMinimumHeight(1200);
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
    area.verticalScrollBar()->setValue(40);
    test::settle();
    EXPECT_FALSE(recorder.painted.empty());
}

TEST_F(ScrollAreaTest, dragging_the_thumb_scrolls) {
    OverlayScrollBar& bar = *barOf(area);
    const QPoint grip = bar.thumbRect().center();
    test::mouse(bar, QEvent::MouseButtonPress, grip, Qt::LeftButton);
    EXPECT_EQ(area.verticalScrollBar()->value(), 0);
    test::mouse(bar, QEvent::MouseMove, grip + QPoint(0, 500), Qt::LeftButton);
    EXPECT_EQ(area.verticalScrollBar()->value(), area.verticalScrollBar()->maximum());
    test::mouse(bar, QEvent::MouseButtonRelease, grip, Qt::LeftButton);
    test::mouse(bar, QEvent::MouseMove, grip, Qt::LeftButton);
    EXPECT_EQ(area.verticalScrollBar()->value(), area.verticalScrollBar()->maximum());
}

TEST_F(ScrollAreaTest, the_keyboard_reaches_both_ends) {
    test::press(area, Qt::Key_End);
    EXPECT_EQ(area.verticalScrollBar()->value(), area.verticalScrollBar()->maximum());
    test::press(area, Qt::Key_Home);
    EXPECT_EQ(area.verticalScrollBar()->value(), 0);
}

TEST_F(ScrollAreaTest, contents_that_fit_have_no_thumb_and_take_no_focus) {
    EXPECT_EQ(area.focusPolicy(), Qt::StrongFocus);
    area.resize(360, 1200);
    test::settle();
    EXPECT_TRUE(barOf(area)->thumbRect().isEmpty());
    EXPECT_EQ(area.focusPolicy(), Qt::NoFocus);
    area.resize(360, 200);
    test::settle();
    EXPECT_EQ(area.focusPolicy(), Qt::StrongFocus);
}

TEST_F(ScrollAreaTest, the_focus_leaves_when_there_is_nothing_left_to_scroll) {
    area.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(area.hasFocus());
    area.resize(360, 1200);
    test::settle();
    EXPECT_FALSE(area.hasFocus());
}

TEST(Surface, fills_itself_with_the_window_colour) {
    test::FixedTheme theme(Appearance::light);
    Surface surface;
    surface.resize(20, 20);
    EXPECT_EQ(test::picture(surface, 1).pixel(0, 0), 0xFFF3F4F6);
}

TEST(Card, is_round_and_outlined_and_keeps_its_padding) {
    test::FixedTheme theme(Appearance::dark);
    Card card;
    card.resize(100, 60);
    const QImage image = test::picture(card, 2);
    EXPECT_EQ(qAlpha(image.pixel(1, 1)), 0);
    EXPECT_EQ(image.pixel(100, 60), 0xFF1D2025);
    const QColor border = over(QColor(0x1D2025), Theme::current().color(ColorToken::cardBorder));
    EXPECT_NEAR(image.pixelColor(100, 0).red(), border.red(), 1);
    EXPECT_EQ(card.content()->contentsMargins(), QMargins(14, 14, 14, 14));
}

TEST(Card, a_change_within_leaves_the_same_picture_as_a_whole_repaint) {
    test::FixedTheme theme(Appearance::dark);
    Card card;
    card.resize(100, 60);
    const QImage whole = test::picture(card, 1);
    QImage part(100, 60, QImage::Format_ARGB32_Premultiplied);
    part.fill(Qt::transparent);
    card.render(&part, QPoint(20, 20), QRegion(20, 20, 60, 20), QWidget::DrawChildren);
    EXPECT_EQ(part.copy(20, 20, 60, 20), whole.copy(20, 20, 60, 20));
}

TEST(Card, emphasis_is_drawn_in_the_accent) {
    test::FixedTheme theme(Appearance::dark);
    Card card;
    card.resize(100, 60);
    card.setEmphasis(Card::Emphasis::accent);
    const QColor edge = test::picture(card, 2).pixelColor(100, 0);
    EXPECT_GT(edge.green(), edge.red() + 40);
}

TEST(SectionHead, speaks_as_a_heading_with_its_title) {
    SectionHead head(QStringLiteral("Now"));
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&head);
    EXPECT_EQ(spoken->role(), QAccessible::Heading);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Now"));
    head.setTitle(QStringLiteral("Last 60 s"));
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Last 60 s"));
}

// Where VANTRIX_PICTURES names a folder, the pictures are kept there for looking at.
TEST(KitPage, shows_every_piece_in_both_appearances_at_every_scale) {
    for (const Appearance appearance : {Appearance::dark, Appearance::light}) {
        test::FixedTheme theme(appearance);
        const std::unique_ptr<QWidget> page = makeKitPage();
        for (const qreal scale : {1.0, 1.25, 1.5, 2.0}) {
            const QImage image = test::picture(*page, scale);
            EXPECT_EQ(image.pixelColor(0, 0), Theme::current().color(ColorToken::window));
            const QString folder = qEnvironmentVariable("VANTRIX_PICTURES");
            if (folder.isEmpty()) continue;
            const char* name = appearance == Appearance::dark ? "dark" : "light";
            EXPECT_TRUE(image.save(QStringLiteral("%1/kit-%2-%3.png")
                                       .arg(folder, QString::fromLatin1(name))
                                       .arg(static_cast<int>(scale * 100))));
        }
    }
}

}  // namespace
}  // namespace vtx
