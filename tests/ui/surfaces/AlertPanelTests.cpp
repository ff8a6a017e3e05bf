// SPDX-License-Identifier: MIT
#include "ui/surfaces/AlertPanel.h"

#include <gtest/gtest.h>

#include <QPointer>

#include "ui/kit/Button.h"
#include "ui/kit/Theme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

int pixelsOf(const QImage& picture, const QColor& color) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y) == color) ++count;
    return count;
}

struct AlertPanels : testing::Test {
    QPointer<AlertPanel> panel{new AlertPanel("It failed", "Nobody knows why.", nullptr)};

    AlertPanels() { test::show(*panel); }
    ~AlertPanels() override { delete panel; }
};

TEST_F(AlertPanels, bears_the_sign_of_a_warning_in_its_colour) {
    const QImage picture = test::picture(*panel, 2);
    constexpr int inside = 100;  // the sign covers some 300 at this scale
    EXPECT_GT(pixelsOf(picture, Theme::current().color(ColorToken::orange)), inside);
}

TEST_F(AlertPanels, is_an_alert_with_its_title_and_its_message) {
    auto* spoken = QAccessible::queryAccessibleInterface(panel.data());
    EXPECT_EQ(spoken->role(), QAccessible::AlertMessage);
    EXPECT_EQ(spoken->text(QAccessible::Name), "It failed");
    EXPECT_EQ(spoken->text(QAccessible::Description), "Nobody knows why.");
}

TEST_F(AlertPanels, goes_when_it_is_dismissed) {
    EXPECT_TRUE(panel->button().hasFocus());
    test::press(*panel, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(panel, nullptr);
}

}  // namespace
}  // namespace vtx
