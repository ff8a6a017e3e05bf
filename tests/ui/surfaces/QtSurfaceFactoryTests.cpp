// SPDX-License-Identifier: MIT
#include "ui/surfaces/QtSurfaceFactory.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPixmap>
#include <QPixmapCache>
#include <chrono>

#include "ShellFakes.h"
#include "SurfaceBench.h"
#include "ui/surfaces/DashboardWindowController.h"
#include "ui/surfaces/LanguagePickerView.h"
#include "ui/surfaces/LanguagePickerWindowController.h"
#include "ui/surfaces/PopoverController.h"
#include "ui/surfaces/StatusItemController.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

class QtSurfaceFactoryTest : public testing::Test {
protected:
    QtSurfaceFactoryTest() {
        factory.onLetGo = [this] { ++letGo; };
        factory.keepFor(0ms);
        QPixmap picture(4, 4);
        picture.fill(Qt::red);
        QPixmapCache::insert(kept, picture);
    }

    /// Whether what the toolkit keeps to draw with is still there.
    [[nodiscard]] bool isKept() const { return QPixmapCache::find(kept, nullptr); }

    test::SurfaceBench bench;
    FakeWindowSystem system;
    FakeUserDefaults defaults;
    QtSurfaceFactory factory{system, defaults, "Vantrix"};
    const QString kept = QStringLiteral("kept");
    int letGo = 0;
};

TEST_F(QtSurfaceFactoryTest, memory_is_given_back_once_the_popover_let_its_pages_go) {
    const auto item = factory.makeStatusItem(bench.coordinator);
    item->setLength(150);
    const auto popover = factory.makePopover(bench.coordinator, *item, {});
    factory.popover()->keepPagesFor(0ms);
    popover->show();
    test::settle();
    EXPECT_EQ(letGo, 0);
    EXPECT_TRUE(isKept());
    popover->close();
    test::settle();
    EXPECT_EQ(letGo, 1);
    EXPECT_FALSE(isKept());
}

TEST_F(QtSurfaceFactoryTest,
       what_a_popover_was_drawn_with_stays_as_long_as_what_is_closed_before_it) {
    const auto item = factory.makeStatusItem(bench.coordinator);
    item->setLength(150);
    const auto popover = factory.makePopover(bench.coordinator, *item, {});
    factory.keepFor(1h);
    factory.popover()->keepPagesFor(0ms);
    popover->show();
    popover->close();
    test::settle();
    EXPECT_EQ(letGo, 0);
    EXPECT_TRUE(isKept());
}

TEST_F(QtSurfaceFactoryTest, nothing_is_given_back_while_a_popover_is_open_again) {
    const auto item = factory.makeStatusItem(bench.coordinator);
    item->setLength(150);
    const auto popover = factory.makePopover(bench.coordinator, *item, {});
    popover->show();
    popover->close();
    popover->show();
    test::settle();
    EXPECT_EQ(letGo, 0);
}

TEST_F(QtSurfaceFactoryTest, memory_is_given_back_after_the_dashboard_closed) {
    const auto dashboard = factory.makeDashboard(bench.coordinator);
    dashboard->show(PopoverSection::overview);
    test::settle();
    EXPECT_TRUE(isKept());
    factory.dashboard()->window()->close();
    test::settle();
    test::settle();
    EXPECT_EQ(letGo, 1);
    EXPECT_FALSE(isKept());
}

TEST_F(QtSurfaceFactoryTest, memory_is_given_back_after_the_mini_widget_closed) {
    const auto widget = factory.makeMiniWidget(bench.coordinator);
    widget->show();
    test::settle();
    EXPECT_TRUE(isKept());
    widget->close();
    test::settle();
    EXPECT_EQ(letGo, 1);
    EXPECT_FALSE(isKept());
}

TEST_F(QtSurfaceFactoryTest, a_mini_widget_that_was_not_shown_gives_nothing_back) {
    const auto widget = factory.makeMiniWidget(bench.coordinator);
    widget->close();
    test::settle();
    EXPECT_EQ(letGo, 0);
}

TEST_F(QtSurfaceFactoryTest, memory_is_given_back_after_a_language_was_chosen) {
    const auto picker = factory.makeLanguagePicker();
    picker->present(Language::en, [](Language) {});
    static_cast<LanguagePickerView*>(factory.languagePicker()->window())->onConfirm(Language::de);
    test::settle();
    test::settle();
    EXPECT_EQ(letGo, 1);
    EXPECT_FALSE(isKept());
}

TEST_F(QtSurfaceFactoryTest, memory_is_given_back_after_the_panel_about_the_program_closed) {
    factory.showAboutPanel();
    test::settle();
    EXPECT_TRUE(isKept());
    factory.aboutPanel()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    test::settle();
    EXPECT_EQ(factory.aboutPanel(), nullptr);
    EXPECT_EQ(letGo, 1);
    EXPECT_FALSE(isKept());
}

TEST_F(QtSurfaceFactoryTest, memory_is_given_back_after_the_menu_closed) {
    const auto item = factory.makeStatusItem(bench.coordinator);
    item->setLength(150);
    item->popUpMenu({MenuItem{"Quit", "q", [] {}}});
    test::settle();
    EXPECT_TRUE(isKept());
    QApplication::activePopupWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    test::settle();
    EXPECT_EQ(letGo, 1);
    EXPECT_FALSE(isKept());
}

TEST_F(QtSurfaceFactoryTest, what_an_open_surface_is_drawn_with_stays) {
    const auto dashboard = factory.makeDashboard(bench.coordinator);
    const auto widget = factory.makeMiniWidget(bench.coordinator);
    dashboard->show(PopoverSection::overview);
    widget->show();
    widget->close();
    test::settle();
    EXPECT_EQ(letGo, 1);
    EXPECT_TRUE(isKept());
}

TEST_F(QtSurfaceFactoryTest, the_mini_widget_that_stays_keeps_nothing_from_being_let_go) {
    const auto dashboard = factory.makeDashboard(bench.coordinator);
    const auto widget = factory.makeMiniWidget(bench.coordinator);
    widget->show();
    dashboard->show(PopoverSection::overview);
    test::settle();
    factory.dashboard()->window()->close();
    test::settle();
    test::settle();
    EXPECT_FALSE(isKept());
}

}  // namespace
}  // namespace vtx
