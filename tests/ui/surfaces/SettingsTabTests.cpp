// SPDX-License-Identifier: MIT
#include "ui/surfaces/SettingsTab.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QEvent>
#include <set>

#include "base/Version.h"
#include "platform/simulated/Operations.h"
#include "ui/kit/Button.h"
#include "ui/kit/ColorWell.h"
#include "ui/kit/FormNote.h"
#include "ui/kit/FormRow.h"
#include "ui/kit/MenuButton.h"
#include "ui/kit/ScrollArea.h"
#include "ui/kit/SegmentedControl.h"
#include "ui/kit/Slider.h"
#include "ui/kit/Switch.h"
#include "ui/kit/Theme.h"
#include "ui/kit/TileList.h"
#include "ui/surfaces/AlertPanel.h"
#include "ui/surfaces/SurfaceBench.h"

namespace vtx {
namespace {

class SettingsTabTest : public testing::Test {
protected:
    SettingsTabTest() {
        Localization::shared().setPreference(Language::en);
        page.resize(360, 540);
        tab = new SettingsTab(bench.coordinator);
        page.setContents(tab);
        test::show(page);
    }

    template <class Control>
    Control& named(const char* name, int skip = 0) {
        for (auto* one : tab->findChildren<Control*>())
            if (one->accessibleName() == QString::fromUtf8(name) && one->isVisible() && skip-- == 0)
                return *one;
        throw std::runtime_error(std::string("no control is called ") + name);
    }
    [[nodiscard]] const DisplayPreferences& preferences() const {
        return *bench.coordinator.preferences;
    }
    template <class Edit>
    void change(Edit edit) {
        bench.change(edit);
        test::settle();
    }

    test::SurfaceBench bench;
    ScrollArea page;
    SettingsTab* tab = nullptr;
};

TEST_F(SettingsTabTest, opening_it_changes_nothing) {
    EXPECT_EQ(preferences(), DisplayPreferences::defaults());
    page.hide();
    page.show();
    EXPECT_EQ(preferences(), DisplayPreferences::defaults());
}

/// Counts the windows that are shown while it is there.
class ShownWindows final : public QObject {
public:
    ShownWindows() { qApp->installEventFilter(this); }
    int count = 0;

private:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(watched);
        count += event->type() == QEvent::Show && widget && widget->isWindow();
        return false;
    }
};

// One that is shown for a moment takes the keyboard from the popover, which closes it.
TEST_F(SettingsTabTest, no_part_of_it_is_a_window_before_it_is_in_its_page) {
    const ShownWindows shown;
    page.setContents(new SettingsTab(bench.coordinator));
    test::settle();
    EXPECT_EQ(shown.count, 0);
}

TEST_F(SettingsTabTest, a_switch_changes_its_preference_at_once) {
    named<Switch>("Compact mode").pressWhole();
    EXPECT_TRUE(preferences().menuBarCompact);
    named<Switch>("Fan as live label").pressWhole();
    EXPECT_FALSE(preferences().menuBarLiveFan);
}

TEST_F(SettingsTabTest, a_change_made_elsewhere_shows_at_once) {
    EXPECT_FALSE(named<Switch>("Show floating mini widget").isOn());
    change([](auto& p) { p.miniWidgetEnabled = true; });
    EXPECT_TRUE(named<Switch>("Show floating mini widget").isOn());
    page.hide();
    change([](auto& p) { p.miniWidgetEnabled = false; });
    test::show(page);
    EXPECT_FALSE(named<Switch>("Show floating mini widget").isOn());
}

TEST_F(SettingsTabTest, hidden_it_follows_nobody) {
    page.hide();
    EXPECT_FALSE(bench.coordinator.loginItem.isEnabled.hasSubscribers());
}

TEST_F(SettingsTabTest, a_threshold_appears_with_its_switch_and_is_stored_scaled) {
    EXPECT_THROW(named<Slider>("CPU"), std::runtime_error);
    change([](auto& p) { p.alertCPUEnabled = true; });
    Slider& slider = named<Slider>("CPU");
    EXPECT_EQ(slider.value(), 90);
    slider.setRangeValue(85);
    EXPECT_EQ(preferences().alertCPUThreshold, 0.85);
    EXPECT_EQ(slider.accessibleDescription(), "85%");
}

TEST_F(SettingsTabTest, the_detectors_sliders_come_and_go_with_it) {
    named<Switch>("Enable detector").pressWhole();
    test::settle();
    named<Slider>("Minimum duration").setRangeValue(330);
    EXPECT_EQ(preferences().hogMinDurationSeconds, 330);
    EXPECT_EQ(named<Slider>("Minimum duration").accessibleDescription(), "6 min");
    named<Switch>("Enable detector").pressWhole();
    EXPECT_THROW(named<Slider>("Minimum duration"), std::runtime_error);
}

TEST_F(SettingsTabTest, a_menu_stores_the_symbol_of_its_choice) {
    MenuButton& menu = named<MenuButton>("CPU temperature");
    menu.pressWhole();
    menu.menu()->actions()[1]->trigger();
    menu.menu()->close();
    EXPECT_EQ(preferences().iconThermal, "flame");
    EXPECT_EQ(menu.accessibleDescription(), "Flame");
}

TEST_F(SettingsTabTest, a_preset_replaces_what_it_is_about) {
    named<Button>("Minimal").pressWhole();
    EXPECT_EQ(preferences(),
              DisplayPreferences::defaults().applyingPreset(DisplayPreferences::Preset::minimal));
    EXPECT_TRUE(named<Switch>("Compact mode").isOn());
}

TEST_F(SettingsTabTest, another_interval_restarts_a_running_loop_and_no_stopped_one) {
    auto& interval = named<SegmentedControl>("Refresh interval");
    interval.pressPart(2);
    EXPECT_EQ(preferences().refreshIntervalSeconds, 2.0);
    EXPECT_FALSE(bench.coordinator.isRunning());
    bench.coordinator.start();
    bench.settle();
    const auto passes = bench.samples();
    interval.pressPart(0);
    bench.settle();
    EXPECT_GT(bench.samples(), passes);
}

TEST_F(SettingsTabTest, tiles_move_by_their_buttons_and_by_the_keyboard) {
    auto& list = *tab->findChild<TileList*>();
    list.row(6).button(TileStep::up).pressWhole();
    EXPECT_EQ(preferences().menuBarOrder[5], "ane");
    list.row(0).setFocus(Qt::TabFocusReason);
    test::press(list.row(0), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(preferences().menuBarOrder[1], "cpu");
    EXPECT_TRUE(list.row(1).hasFocus());
    EXPECT_EQ(list.row(5).accessibleName(),
              QString::fromUtf8(Localization::shared().string(L10n::Key::settings_ane).data()));
}

TEST_F(SettingsTabTest, a_dragged_tile_is_at_its_place_before_it_is_let_go) {
    auto& list = *tab->findChild<TileList*>();
    test::mouse(list, QEvent::MouseButtonPress, {60, 17}, Qt::LeftButton);
    const QPoint over(60, 3 * 34 + 17);
    QMouseEvent move(QEvent::MouseMove, QPointF(over), QPointF(list.mapToGlobal(over)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&list, &move);
    EXPECT_EQ(preferences().menuBarOrder,
              (std::vector<std::string>{"gpu", "thermal", "memory", "cpu", "disk", "fan", "ane"}));
    test::mouse(list, QEvent::MouseButtonRelease, over, Qt::LeftButton);
    EXPECT_FALSE(list.draggingItem());
}

TEST_F(SettingsTabTest, a_colour_is_stored_and_its_reset_goes_with_it) {
    ColorWell& well = named<ColorWell>("E-cores");
    well.pressWhole();
    well.dialog()->setCurrentColor(QColor(0xD6, 0x32, 0x6B));
    well.dialog()->accept();
    EXPECT_EQ(preferences().colorECore, "#D6326B");
    named<Button>("Auf Standard zurücksetzen, E-cores").pressWhole();
    EXPECT_EQ(preferences().colorECore, "");
    EXPECT_THROW(named<Button>("Auf Standard zurücksetzen, E-cores"), std::runtime_error);
    EXPECT_EQ(well.shownColor(), Theme::current().color(ColorToken::eCore));
}

TEST_F(SettingsTabTest, a_colour_dialog_that_is_given_up_leaves_the_text_that_was_stored) {
    change([](auto& p) { p.colorGPU = "no colour at all"; });
    ColorWell& well = named<ColorWell>("GPU");
    EXPECT_EQ(well.shownColor(), Theme::current().color(ColorToken::gpu));
    well.pressWhole();
    well.dialog()->setCurrentColor(Qt::red);
    EXPECT_EQ(preferences().colorGPU, "#FF0000");
    well.dialog()->reject();
    EXPECT_EQ(preferences().colorGPU, "no colour at all");
}

TEST_F(SettingsTabTest, launch_at_login_falls_back_to_what_is_so_and_says_why) {
    bench.failures.failNext(operations::appServiceRegister);
    Switch& login = named<Switch>("Launch at login");
    login.pressWhole();
    EXPECT_FALSE(login.isOn());
    EXPECT_TRUE(preferences().launchAtLogin);
    auto* alert = page.findChild<AlertPanel*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->accessibleName(), "Couldn't update Launch at login");
    EXPECT_EQ(alert->accessibleDescription(),
              QString::fromStdString(**bench.coordinator.loginItem.lastError));
    alert->button().pressWhole();
    login.pressWhole();
    EXPECT_TRUE(login.isOn());
}

TEST_F(SettingsTabTest, a_login_item_changed_elsewhere_shows_when_the_user_comes_back) {
    bench.platform.appService.setStatus(AppService::enabledStatus);
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(tab, &activated);
    EXPECT_TRUE(named<Switch>("Launch at login").isOn());
    page.hide();
    bench.platform.appService.setStatus(0);
    test::show(page);
    EXPECT_FALSE(named<Switch>("Launch at login").isOn());
    EXPECT_EQ(preferences(), DisplayPreferences::defaults());
}

TEST_F(SettingsTabTest, version_and_build_are_the_programs_own) {
    const auto says = [this](const std::string& value) {
        const auto all = tab->findChildren<QWidget*>();
        return std::ranges::any_of(all, [&value](QWidget* one) {
            const auto* row = dynamic_cast<const FormRow*>(one);
            return row && row->partCount() == 1 && row->part(0).value.toStdString() == value;
        });
    };
    EXPECT_TRUE(says(std::string(programVersion())));
    EXPECT_TRUE(says(programBuild().empty() ? "—" : std::string(programBuild())));
}

TEST_F(SettingsTabTest, the_end_of_a_look_for_updates_is_told_in_front) {
    auto& updater = bench.platform.softwareUpdater;
    updater.isHolding = true;
    updater.answer = {.kind = UpdateAnswer::Kind::available, .version = "9.9"};
    const auto isLooking = [this] {
        const auto notes = tab->findChildren<FormNote*>();
        return std::ranges::any_of(notes, [](const FormNote* note) {
            return note->isVisible() && note->accessibleName() == "Looking for updates …";
        });
    };
    Button& check = named<Button>("Check for Updates …");
    check.pressWhole();
    check.pressWhole();
    EXPECT_EQ(updater.checks, 1);
    EXPECT_TRUE(isLooking());
    updater.release();
    EXPECT_FALSE(isLooking());
    auto* panel = page.findChild<AlertPanel*>();
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->accessibleName(), "Vantrix 9.9 is available");
    panel->button().pressWhole();
}

TEST_F(SettingsTabTest, whoever_left_the_page_meanwhile_is_told_all_the_same) {
    auto& updater = bench.platform.softwareUpdater;
    updater.isHolding = true;
    named<Button>("Check for Updates …").pressWhole();
    page.setContents(new QWidget);
    test::settle();
    updater.release();
    auto* panel = page.findChild<AlertPanel*>();
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->accessibleName(), "Vantrix is up to date");
    panel->button().pressWhole();
}

TEST_F(SettingsTabTest, updates_that_come_with_the_system_say_so_until_there_is_an_updater) {
    auto& updater = bench.platform.softwareUpdater;
    updater.setAvailable(false);
    Button& check = named<Button>("Check for Updates …");
    Switch& automatic = named<Switch>("Check for updates automatically");
    EXPECT_FALSE(check.isEnabled());
    EXPECT_FALSE(automatic.isEnabled());
    EXPECT_EQ(check.accessibleDescription(), "Updates come with the system.");
    EXPECT_EQ(automatic.accessibleDescription(), "Updates come with the system.");
    updater.setAvailable(true);
    EXPECT_TRUE(check.isEnabled());
    EXPECT_TRUE(automatic.isEnabled());
    EXPECT_EQ(check.accessibleDescription(), "");
}

TEST_F(SettingsTabTest, updates_go_to_the_updater) {
    auto& updater = bench.platform.softwareUpdater;
    named<Switch>("Check for updates automatically").pressWhole();
    EXPECT_FALSE(updater.automatic);
}

TEST_F(SettingsTabTest, another_language_is_in_force_at_once) {
    MenuButton& menu = named<MenuButton>("Language");
    menu.pressWhole();
    menu.menu()->actions()[1]->trigger();
    menu.menu()->close();
    EXPECT_EQ(preferences().languageCode, "de");
    EXPECT_EQ(named<MenuButton>("Sprache").accessibleDescription(), "Deutsch");
}

TEST_F(SettingsTabTest, refused_notifications_are_told_and_the_rows_stay_enabled) {
    const auto tells = [this] {
        const auto notes = tab->findChildren<FormNote*>();
        return std::ranges::any_of(notes, [](const FormNote* note) {
            return note->isVisible() && note->accessibleName().contains("denied notifications");
        });
    };
    EXPECT_TRUE(tells());
    bench.coordinator.alerts.permissionGranted = true;
    EXPECT_FALSE(tells());
    EXPECT_TRUE(named<Switch>("Critical memory pressure").isEnabled());
}

/// Every control that the keyboard comes to, in the order in which it comes to them.
std::vector<QWidget*> walk(QWidget& from) {
    std::vector<QWidget*> stops;
    std::set<QWidget*> seen;
    from.setFocus(Qt::TabFocusReason);
    for (QWidget* at = QApplication::focusWidget(); at && seen.insert(at).second;) {
        stops.push_back(at);
        test::press(*at, Qt::Key_Tab);
        at = QApplication::focusWidget();
    }
    return stops;
}

TEST_F(SettingsTabTest, the_keyboard_reaches_every_control_from_top_to_bottom_and_sees_it) {
    change([](auto& p) {
        p.hogDetectorEnabled = p.alertCPUEnabled = p.alertFanEnabled = true;
        p.colorCPU = "#123456";
    });
    const auto stops = walk(named<Switch>("Compact mode"));
    int last = -1;
    for (QWidget* stop : stops) {
        if (!tab->isAncestorOf(stop)) continue;
        const int row = stop->mapTo(tab, QPoint(0, stop->height() / 2)).y();
        EXPECT_GE(row + 20, last) << stop->accessibleName().toStdString();
        last = row;
    }
    for (auto* control : tab->findChildren<KitWidget*>()) {
        if (!control->isVisible() || !control->isEnabled()) continue;
        if (control->focusPolicy() == Qt::NoFocus) continue;
        EXPECT_EQ(std::ranges::count(stops, control), 1) << control->accessibleName().toStdString();
    }
}

TEST_F(SettingsTabTest, every_control_has_a_name_and_a_role) {
    change([](auto& p) { p.hogDetectorEnabled = true; });
    for (auto* control : tab->findChildren<KitWidget*>()) {
        if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus) continue;
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
        EXPECT_NE(spoken->role(), QAccessible::Client) << control->metaObject()->className();
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty())
            << control->metaObject()->className() << control->mapTo(tab, QPoint()).y();
    }
}

TEST_F(SettingsTabTest, nothing_is_wider_than_the_page_in_any_language) {
    change([](auto& p) { p.hogDetectorEnabled = p.alertFanEnabled = true; });
    for (const Language language : allLanguages) {
        Localization::shared().setPreference(language);
        test::settle();
        EXPECT_EQ(tab->width(), page.viewport()->width()) << rawValue(language);
        for (auto* control : tab->findChildren<KitWidget*>()) {
            if (!control->isVisible()) continue;
            const int right = control->mapTo(tab, QPoint(control->width(), 0)).x();
            EXPECT_LE(right, tab->width()) << rawValue(language);
        }
    }
}

}  // namespace
}  // namespace vtx
