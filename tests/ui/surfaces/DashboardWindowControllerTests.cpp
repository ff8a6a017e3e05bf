// SPDX-License-Identifier: MIT
#include "ui/surfaces/DashboardWindowController.h"

#include <gtest/gtest.h>

#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <vector>

#include "ShellFakes.h"
#include "SurfaceBench.h"
#include "ui/surfaces/PopoverView.h"

namespace vtx {
namespace {

class DashboardTest : public testing::Test {
protected:
    std::unique_ptr<DashboardWindowController> make() {
        auto made = std::make_unique<DashboardWindowController>(system, bench.coordinator, defaults,
                                                                "Vantrix (simulated Mac)");
        made->onVisibilityChange = [this](bool visible) { told.push_back(visible); };
        return made;
    }
    std::unique_ptr<DashboardWindowController> shown() {
        auto made = make();
        made->show(PopoverSection::overview);
        test::settle();
        return made;
    }
    static std::vector<PopoverView*> contentsOf(const DashboardWindowController& dashboard) {
        std::vector<PopoverView*> found;
        for (QObject* child : dashboard.window()->children())
            if (auto* view = dynamic_cast<PopoverView*>(child)) found.push_back(view);
        return found;
    }
    static PopoverView* contentOf(const DashboardWindowController& dashboard) {
        const auto all = contentsOf(dashboard);
        return all.size() == 1 ? all.front() : nullptr;
    }

    FakeWindowSystem system;
    test::SurfaceBench bench;
    FakeUserDefaults defaults;
    std::vector<bool> told;
};

TEST_F(DashboardTest, has_no_window_before_it_is_shown) {
    const auto dashboard = make();
    EXPECT_EQ(dashboard->window(), nullptr);
    EXPECT_TRUE(told.empty());
}

TEST_F(DashboardTest, comes_to_the_desktop_where_it_was_asked_for_each_time) {
    const auto dashboard = shown();
    EXPECT_EQ(system.broughtHere, 1);
    dashboard->show(PopoverSection::cpu);
    EXPECT_EQ(system.broughtHere, 2);
}

TEST_F(DashboardTest, tells_when_it_has_let_its_content_go) {
    const auto dashboard = shown();
    int letGo = 0;
    dashboard->didLetGo = [&] { ++letGo; };
    dashboard->window()->close();
    EXPECT_EQ(letGo, 0);
    test::settle();
    EXPECT_EQ(letGo, 1);
    EXPECT_TRUE(contentsOf(*dashboard).empty());
}

TEST_F(DashboardTest, carries_the_programs_title) {
    EXPECT_EQ(shown()->window()->windowTitle(), "Vantrix (simulated Mac)");
}

TEST_F(DashboardTest, its_first_size_and_its_least_size) {
    const auto dashboard = shown();
    EXPECT_EQ(dashboard->window()->size(), QSize(460, 700));
    EXPECT_EQ(dashboard->window()->minimumSize(), QSize(420, 620));
}

TEST_F(DashboardTest, without_a_stored_frame_it_stands_in_the_middle_of_the_screen) {
    const auto dashboard = shown();
    const QPoint away = dashboard->window()->geometry().center() -
                        dashboard->window()->screen()->availableGeometry().center();
    EXPECT_LE(away.manhattanLength(), 8) << "but for the frame around it";
}

TEST_F(DashboardTest, closing_drops_the_content_and_keeps_the_window) {
    const auto dashboard = shown();
    const QPointer<QWidget> window = dashboard->window();
    const QPointer<QWidget> content = contentOf(*dashboard);
    ASSERT_TRUE(content);
    EXPECT_TRUE(bench.isCPUFollowed());
    window->close();
    test::settle();
    EXPECT_TRUE(content.isNull());
    EXPECT_FALSE(bench.isCPUFollowed());
    dashboard->show(PopoverSection::overview);
    EXPECT_EQ(dashboard->window(), window.data());
    EXPECT_EQ(told, (std::vector{true, false, true}));
}

TEST_F(DashboardTest, closed_it_follows_nothing_whatever_section_it_showed) {
    bench.offerEverySection();
    const auto dashboard = make();
    for (const PopoverSection section : test::everySection) {
        dashboard->show(section);
        test::settle();
        EXPECT_TRUE(bench.isAnythingFollowed());
        dashboard->window()->close();
        EXPECT_FALSE(bench.isAnythingFollowed()) << describe(section).rawValue;
    }
}

TEST_F(DashboardTest, reopening_starts_at_the_section_asked_for) {
    const auto dashboard = shown();
    dashboard->window()->close();
    dashboard->show(PopoverSection::cpu);
    ASSERT_TRUE(contentOf(*dashboard));
    EXPECT_EQ(contentOf(*dashboard)->selectedSection(), PopoverSection::cpu);
}

TEST_F(DashboardTest, shown_while_open_it_has_one_content_at_the_new_section) {
    const auto dashboard = shown();
    dashboard->show(PopoverSection::cpu);
    ASSERT_EQ(contentsOf(*dashboard).size(), 1U);
    EXPECT_EQ(contentOf(*dashboard)->selectedSection(), PopoverSection::cpu);
    ASSERT_TRUE(dashboard->window()->focusWidget()) << "keys reach the new content";
    EXPECT_TRUE(contentOf(*dashboard)->isAncestorOf(dashboard->window()->focusWidget()));
}

TEST_F(DashboardTest, its_frame_survives_a_restart) {
    auto dashboard = shown();
    dashboard->window()->setGeometry(40, 50, 500, 640);
    dashboard->window()->close();
    dashboard = shown();
    EXPECT_EQ(dashboard->window()->geometry(), QRect(40, 50, 500, 640));
}

TEST_F(DashboardTest, its_frame_is_stored_while_it_is_open_once_it_rests) {
    const auto dashboard = shown();
    auto* rest = dashboard->window()->findChild<QTimer*>({}, Qt::FindDirectChildrenOnly);
    dashboard->window()->setGeometry(40, 50, 500, 640);
    test::settle();
    EXPECT_TRUE(rest->isActive());
    EXPECT_FALSE(defaults.data(DashboardWindowController::frameKey)) << "not with each step";
    QMetaObject::invokeMethod(rest, "timeout");
    EXPECT_TRUE(defaults.data(DashboardWindowController::frameKey));
    EXPECT_EQ(shown()->window()->geometry(), QRect(40, 50, 500, 640));
    dashboard->window()->close();
    EXPECT_FALSE(rest->isActive()) << "nothing is due after closing";
}

TEST_F(DashboardTest, ending_the_program_with_it_open_stores_the_frame_too) {
    auto dashboard = shown();
    dashboard->window()->setGeometry(40, 50, 500, 640);
    dashboard.reset();
    EXPECT_TRUE(defaults.data(DashboardWindowController::frameKey));
    EXPECT_EQ(shown()->window()->geometry(), QRect(40, 50, 500, 640));
}

TEST_F(DashboardTest, a_frame_that_makes_no_sense_is_not_followed) {
    for (const char* nonsense : {"", "{}", "\x01\xD9\xD0\xCB half of one"}) {
        defaults.setData(DashboardWindowController::frameKey, toData(nonsense));
        EXPECT_EQ(shown()->window()->size(), QSize(460, 700)) << nonsense;
    }
}

}  // namespace
}  // namespace vtx
