// SPDX-License-Identifier: MIT
#include "ui/surfaces/ProcessTab.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QMenu>
#include <QScrollBar>

#include "SurfaceBench.h"
#include "platform/simulated/Operations.h"
#include "support/Snapshots.h"
#include "ui/kit/Button.h"
#include "ui/kit/DialogSheet.h"
#include "ui/kit/TextField.h"
#include "ui/surfaces/HogPanel.h"
#include "ui/surfaces/ProcessFilterBar.h"
#include "ui/surfaces/ProcessList.h"

namespace vtx {
namespace {

class ProcessTabTest : public testing::Test {
protected:
    ProcessTabTest() {
        bench.mac.processes.removeAll();
        run(3000, "node");
        run(3001, "firefox");
        run(3002, "zsh");
        tab.resize(360, 500);
    }
    void run(std::int32_t pid, const std::string& name, ProcessStartTime start = 1) {
        SimulatedProcess process;
        process.pid = pid;
        process.uid = SimulatedProcesses::user;
        process.name = name;
        process.path = "/opt/" + name;
        process.startTime = start;
        bench.mac.processes.add(process);
    }
    void show() {
        test::show(tab);
        settle();
    }
    void settle() {
        bench.settle();
        test::settle();
    }
    void advance(double span) {
        bench.advance(seconds(span));
        test::settle();
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < tab.list().processCount(); ++i)
            all.push_back(tab.list().process(static_cast<int>(i)).name);
        return all;
    }
    [[nodiscard]] int rowOf(const std::string& name) const {
        const auto all = names();
        return static_cast<int>(std::ranges::find(all, name) - all.begin());
    }
    void openMenu(const std::string& name) { tab.list().pressPart(rowOf(name)); }
    /// Opens the menu of a process and chooses an entry there.
    void choose(const std::string& name, const char* title) {
        openMenu(name);
        ASSERT_NE(tab.menu().menu(), nullptr);
        for (QAction* entry : tab.menu().menu()->actions()) {
            if (entry->text() != QString::fromUtf8(title)) continue;
            entry->trigger();
            tab.menu().menu()->close();
            break;
        }
        settle();
    }
    [[nodiscard]] std::int32_t niceOf(std::int32_t pid) {
        return bench.mac.processes.find(pid)->nice;
    }
    [[nodiscard]] std::size_t samples() const {
        return bench.platform.calls(operations::kernProcAllSize);
    }
    [[nodiscard]] QString said(const char* text) {
        auto* found = test::spokenAs(tab, text);
        return found ? found->text(QAccessible::Name) : QStringLiteral("nobody says that");
    }
    [[nodiscard]] HogPanel& panel() {
        for (QWidget* widget : tab.findChildren<QWidget*>())
            if (auto* found = dynamic_cast<HogPanel*>(widget)) return *found;
        throw std::logic_error("there is no panel");
    }

    test::SurfaceBench bench;
    ProcessTab tab{bench.coordinator};
};

TEST_F(ProcessTabTest, samples_at_once_and_every_two_seconds_while_it_is_shown) {
    EXPECT_EQ(samples(), 0U);
    show();
    EXPECT_EQ(samples(), 1U);
    EXPECT_EQ(names(), (std::vector<std::string>{"firefox", "node", "zsh"}));
    advance(2.3);
    EXPECT_EQ(samples(), 2U);
    tab.hide();
    advance(60);
    EXPECT_EQ(samples(), 2U);
    EXPECT_FALSE(bench.coordinator.processes.processes.hasSubscribers());
}

TEST_F(ProcessTabTest, a_new_list_paints_nothing_at_the_edges_of_the_page) {
    for (int i = 0; i < 30; ++i) run(4000 + i, "sleep");
    show();
    test::PaintRecorder recorder(tab);
    for (int i = 0; i < 5; ++i) run(5000 + i, "awake");
    advance(2.3);
    QRegion painted;
    for (const QRegion& part : recorder.painted) painted += part;
    EXPECT_GT(painted.boundingRect().height(), 300);
    EXPECT_GE(painted.boundingRect().left(), 6);
    EXPECT_LT(painted.boundingRect().right(), tab.width() - 6);
    EXPECT_LT(painted.boundingRect().bottom(), tab.height() - 5);
}

TEST_F(ProcessTabTest, before_the_first_list_it_says_that_it_loads) {
    test::show(tab);
    EXPECT_EQ(said("Loading processes…"), QString::fromUtf8("Loading processes…"));
    EXPECT_EQ(said("0 of 0"), "0 of 0");
}

TEST_F(ProcessTabTest, what_is_typed_filters_the_list_and_the_footer_counts) {
    show();
    tab.filterBar().field().setText(" FIRE ");
    EXPECT_EQ(names(), std::vector<std::string>{"firefox"});
    EXPECT_EQ(said("1 of 3"), "1 of 3");
    tab.filterBar().field().setText("pyhton");
    EXPECT_EQ(said("No matches for \"pyhton\""), "No matches for \"pyhton\"");
    tab.filterBar().field().clear();
    EXPECT_EQ(names().size(), 3U);
}

TEST_F(ProcessTabTest, the_footer_tells_how_old_the_list_is) {
    show();
    EXPECT_EQ(said("Updated just now"), "Updated just now");
    bench.clock.advanceBy(seconds(1.5));
    bench.readCPU(0.5);
    bench.settle();
    EXPECT_EQ(said("Updated 1 second ago"), "Updated 1 second ago");
}

TEST_F(ProcessTabTest, the_button_samples_at_once) {
    show();
    auto* button = test::spokenAs(tab, "Refresh now");
    ASSERT_NE(button, nullptr);
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_EQ(samples(), 2U);
}

TEST_F(ProcessTabTest, rows_stand_still_while_a_menu_is_open) {
    show();
    openMenu("node");
    bench.mac.processes.remove(3001);
    advance(2.3);
    EXPECT_EQ(names().size(), 3U);
    tab.menu().menu()->close();
    EXPECT_EQ(names(), (std::vector<std::string>{"node", "zsh"}));
}

TEST_F(ProcessTabTest, rows_stand_still_while_a_dialog_is_open) {
    show();
    choose("node", "Lower priority");
    bench.mac.processes.remove(3001);
    advance(2.3);
    EXPECT_EQ(names().size(), 3U);
    tab.dialog()->cancel()->pressWhole();
    EXPECT_EQ(names(), (std::vector<std::string>{"node", "zsh"}));
}

TEST_F(ProcessTabTest, a_hog_that_is_found_meanwhile_moves_no_row_below_a_menu_or_a_dialog) {
    bench.change([](auto& preferences) { preferences.hogDetectorEnabled = true; });
    show();
    const auto top = [this] { return tab.list().mapTo(&tab, QPoint()).y(); };
    const int before = top();
    openMenu("node");
    bench.coordinator.hogDetector.hogs = std::vector<HogReport>(3);
    test::settle();
    EXPECT_EQ(top(), before);
    tab.menu().menu()->close();
    test::settle();
    const int withThree = top();
    EXPECT_GT(withThree, before);
    choose("node", "Lower priority");
    bench.coordinator.hogDetector.hogs = std::vector<HogReport>(5);
    test::settle();
    EXPECT_EQ(top(), withThree);
    tab.dialog()->cancel()->pressWhole();
    test::settle();
    EXPECT_GT(top(), withThree);
}

TEST_F(ProcessTabTest, a_file_is_shown_and_its_path_copied) {
    show();
    choose("node", "Im Finder zeigen");
    EXPECT_EQ(bench.mac.selectedFile, "/opt/node");
    choose("firefox", "Pfad kopieren");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "/opt/firefox");
}

TEST_F(ProcessTabTest, the_system_monitor_opens_where_there_is_one) {
    show();
    choose("node", "Activity Monitor öffnen");
    EXPECT_EQ(bench.platform.calls(operations::openSystemMonitor), 1U);
    bench.mac.hasSystemMonitor = false;
    choose("node", "Activity Monitor öffnen");
    EXPECT_EQ(bench.platform.calls(operations::openSystemMonitor), 1U);
}

TEST_F(ProcessTabTest, a_priority_changes_only_once_it_is_confirmed) {
    show();
    choose("node", "Lower priority");
    ASSERT_NE(tab.dialog(), nullptr);
    EXPECT_EQ(tab.dialog()->accessibleName(), "Set \"node\" to Lower priority");
    EXPECT_EQ(niceOf(3000), 0);
    tab.dialog()->primary().pressWhole();
    EXPECT_EQ(niceOf(3000), 5);
    EXPECT_EQ(tab.dialog(), nullptr);
    EXPECT_EQ(tab.list().process(rowOf("node")).nice, 5);
}

TEST_F(ProcessTabTest, a_change_that_is_cancelled_is_none) {
    show();
    choose("node", "Lowest (prefer E-cores)");
    tab.dialog()->cancel()->pressWhole();
    EXPECT_EQ(tab.dialog(), nullptr);
    EXPECT_EQ(niceOf(3000), 0);
    EXPECT_EQ(bench.platform.calls(operations::setpriority), 0U);
}

TEST_F(ProcessTabTest, a_refused_change_is_told_and_the_row_stays_as_it_was) {
    bench.mac.processes.change(3000, [](auto& process) { process.nice = 5; });
    show();
    choose("node", "Default priority");
    tab.dialog()->primary().pressWhole();
    ASSERT_NE(tab.dialog(), nullptr);
    EXPECT_EQ(tab.dialog()->accessibleName(), "Couldn't change priority");
    EXPECT_EQ(tab.dialog()->accessibleDescription(),
              "setpriority failed (errno 13: Permission denied).");
    EXPECT_EQ(tab.dialog()->cancel(), nullptr);
    tab.dialog()->primary().pressWhole();
    EXPECT_EQ(tab.dialog(), nullptr);
    EXPECT_EQ(tab.list().process(rowOf("node")).nice, 5);
}

TEST_F(ProcessTabTest, a_process_that_took_over_the_number_is_not_touched) {
    show();
    choose("node", "Lower priority");
    bench.mac.processes.remove(3000);
    run(3000, "innocent", 2);
    advance(2.3);
    EXPECT_LT(rowOf("node"), 3) << "the dialog is about what is shown below it";
    tab.dialog()->primary().pressWhole();
    EXPECT_EQ(niceOf(3000), 0);
    ASSERT_NE(tab.dialog(), nullptr);
    EXPECT_EQ(tab.dialog()->accessibleName(), "Couldn't change priority");
}

TEST_F(ProcessTabTest, a_protected_process_says_so_in_its_menu) {
    bench.mac.processes.change(3002, [](auto& process) { process.uid = 0; });
    show();
    openMenu("zsh");
    const QAction* last = tab.menu().menu()->actions().last();
    EXPECT_EQ(last->text(), "Protected");
    EXPECT_FALSE(last->isEnabled());
    tab.menu().menu()->close();
}

TEST_F(ProcessTabTest, what_was_typed_and_not_confirmed_goes_with_the_page) {
    show();
    choose("node", "Lower priority");
    tab.filterBar().field().setText("x");
    tab.hide();
    EXPECT_EQ(tab.dialog(), nullptr);
    EXPECT_EQ(tab.filterBar().field().text(), "");
    EXPECT_EQ(niceOf(3000), 0);
}

TEST_F(ProcessTabTest, the_panel_is_there_while_the_detector_is_wanted) {
    show();
    EXPECT_FALSE(panel().isVisible());
    bench.change([](auto& preferences) { preferences.hogDetectorEnabled = true; });
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(said("Nothing has crossed the threshold yet."),
              "Nothing has crossed the threshold yet.");
}

TEST_F(ProcessTabTest, the_panel_tells_each_hog) {
    bench.change([](auto& preferences) { preferences.hogDetectorEnabled = true; });
    show();
    HogReport report;
    report.name = "backup-indexer";
    report.averageCPU = 0.24;
    report.peakCPU = 0.61;
    report.activeSeconds = 500;
    bench.coordinator.hogDetector.hogs = std::vector{report};
    auto* row = test::spokenAs(tab, "backup-indexer");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->text(QAccessible::Value), QString::fromUtf8("24%, 8 min · peak 61%"));
}

TEST_F(ProcessTabTest, the_keyboard_leads_from_the_field_into_the_list_and_scrolls_it) {
    for (int pid = 4000; pid < 4100; ++pid) run(pid, "worker");
    show();
    test::press(tab.filterBar().field(), Qt::Key_Down);
    EXPECT_TRUE(tab.list().hasFocus());
    EXPECT_TRUE(tab.list().showsFocus());
    test::press(tab.list(), Qt::Key_End);
    EXPECT_TRUE(tab.list().visibleRegion().contains(tab.list().partRect(102)));
    test::press(tab.list(), Qt::Key_Home);
    EXPECT_TRUE(tab.list().visibleRegion().contains(tab.list().partRect(0)));
}

TEST_F(ProcessTabTest, a_menu_by_the_keyboard_has_its_first_entry_lit) {
    show();
    test::press(tab.filterBar().field(), Qt::Key_Down);
    test::press(tab.list(), Qt::Key_Return);
    ASSERT_NE(tab.menu().menu(), nullptr);
    EXPECT_EQ(tab.menu().menu()->activeAction(), tab.menu().menu()->actions().first());
    tab.menu().menu()->close();
}

}  // namespace
}  // namespace vtx
