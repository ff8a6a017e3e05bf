// SPDX-License-Identifier: MIT
#include "ui/models/SettingsModel.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "support/CoordinatorBench.h"
#include "ui/models/UpdateNotice.h"

namespace vtx {
namespace {

class SettingsModelTest : public testing::Test {
protected:
    [[nodiscard]] SettingsModel describe() const {
        return describeSettings({.preferences = preferences,
                                 .isNotificationPermitted = isPermitted,
                                 .updatesAutomatically = updates});
    }
    [[nodiscard]] static SettingsRow row(const SettingsModel& model, std::string_view id) {
        for (const auto& section : model.sections)
            for (const auto& one : section.rows)
                if (one.id == id) return one;
        ADD_FAILURE() << "no row " << id;
        return {};
    }
    [[nodiscard]] SettingsRow row(std::string_view id) const { return row(describe(), id); }
    static void speak(Language language) { Localization::shared().setPreference(language); }

    AppBench bench;
    DisplayPreferences preferences;
    bool isPermitted = true;
    std::optional<bool> updates = true;
};

TEST_F(SettingsModelTest, has_sixteen_sections_in_their_order) {
    speak(Language::en);
    std::vector<std::string> titles;
    for (const auto& section : describe().sections) titles.push_back(section.title);
    EXPECT_EQ(titles, (std::vector<std::string>{
                          "Compact menu bar", "Menu bar — visible tiles", "Menu bar — live values",
                          "Icons", "Presets", "Updates", "Graphs", "Colors (override default)",
                          "Notifications", "Memory", "Background hog detector", "Mini widget",
                          "Language", "Startup", "Data", "About"}));
}

TEST_F(SettingsModelTest, fixed_texts_stay_in_every_language) {
    speak(Language::de);
    const auto model = describe();
    EXPECT_EQ(model.sections[3].title, "Icons");
    EXPECT_EQ(model.sections[4].title, "Presets");
    EXPECT_EQ(row(model, "iconCPU").label, "CPU");
    EXPECT_EQ(row(model, "refreshIntervalSeconds").choices[0].label, "0,5 s");
    EXPECT_EQ(row(model, "preset").choices[2].label, "Power User");
    EXPECT_NE(model.sections[0].title, "Compact menu bar");
}

TEST_F(SettingsModelTest, every_row_can_be_told_from_the_others) {
    preferences.hogDetectorEnabled = true;
    std::set<std::string_view> ids;
    std::size_t rows = 0;
    for (const auto& section : describe().sections) {
        rows += section.rows.size();
        for (const auto& one : section.rows) ids.insert(one.id);
    }
    EXPECT_EQ(ids.size(), rows);
}

TEST_F(SettingsModelTest, a_threshold_shows_its_scaled_value_while_it_is_on) {
    EXPECT_FALSE(row("alertCPUEnabled").slider->isShown);
    preferences.alertCPUEnabled = true;
    const auto slider = row("alertCPUEnabled").slider;
    ASSERT_TRUE(slider);
    EXPECT_TRUE(slider->isShown);
    EXPECT_EQ(slider->value, 90);
    EXPECT_EQ(slider->text, "90%");
    EXPECT_EQ(slider->min, 50);
    EXPECT_EQ(slider->max, 100);
    EXPECT_EQ(slider->textWidth, 60);
}

TEST_F(SettingsModelTest, temperature_and_fan_have_units_of_their_own) {
    preferences.alertTempEnabled = preferences.alertFanEnabled = true;
    EXPECT_EQ(row("alertTempEnabled").slider->text, "90°C");
    EXPECT_EQ(row("alertTempEnabled").slider->value, 90);
    EXPECT_EQ(row("alertFanEnabled").slider->text, "4500 RPM");
    EXPECT_EQ(row("alertFanEnabled").slider->step, 100);
    EXPECT_FALSE(row("alertPressureEnabled").slider);
}

TEST_F(SettingsModelTest, hostile_thresholds_are_written_without_harm) {
    preferences.alertCPUEnabled = preferences.alertTempEnabled = true;
    preferences.alertCPUThreshold = std::numeric_limits<double>::quiet_NaN();
    preferences.alertTempCelsius = 1e300;
    EXPECT_EQ(row("alertCPUEnabled").slider->text, "—");
    EXPECT_EQ(row("alertTempEnabled").slider->text, "1000000000000000°C");
}

TEST_F(SettingsModelTest, the_detector_has_sliders_while_it_is_on) {
    EXPECT_FALSE(row("hogCPUThreshold").isShown);
    EXPECT_FALSE(row("hogMinDurationSeconds").isShown);
    preferences.hogDetectorEnabled = true;
    preferences.hogMinDurationSeconds = 330;
    EXPECT_TRUE(row("hogCPUThreshold").isShown);
    EXPECT_TRUE(row("hogMinDurationSeconds").isShown);
    EXPECT_EQ(row("hogMinDurationSeconds").slider->text, "6 min");
    EXPECT_EQ(row("hogMinDurationSeconds").slider->value, 330);
    EXPECT_EQ(row("hogCPUThreshold").slider->text, "15%");
}

TEST_F(SettingsModelTest, every_step_of_the_detectors_share_reads_as_itself) {
    preferences.hogDetectorEnabled = true;
    for (int percent = 5; percent <= 100; percent += 5) {
        preferences.hogCPUThreshold = percent / 100.0;
        EXPECT_EQ(row("hogCPUThreshold").slider->text, std::to_string(percent) + "%");
    }
}

TEST_F(SettingsModelTest, the_tile_of_the_neural_engine_has_neither_label_nor_switch) {
    speak(Language::en);
    const auto tiles = row("menuBarOrder").tiles;
    ASSERT_EQ(tiles.size(), 7U);
    EXPECT_EQ(tiles[2].label, "CPU temperature");
    EXPECT_EQ(tiles[2].isOn, std::optional(true));
    EXPECT_EQ(tiles[6].id, "ane");
    EXPECT_EQ(tiles[6].label, "");
    EXPECT_EQ(tiles[6].spoken, Localization::shared().string(L10n::Key::settings_ane));
    EXPECT_FALSE(tiles[6].isOn);
}

TEST_F(SettingsModelTest, a_tile_of_another_version_is_spoken_by_its_name) {
    preferences.menuBarOrder = {"cpu", "quantum"};
    const auto tiles = row("menuBarOrder").tiles;
    ASSERT_EQ(tiles.size(), 2U);
    EXPECT_EQ(tiles[1], (TileModel{"quantum", "", "quantum", std::nullopt}));
}

TEST_F(SettingsModelTest, a_colour_follows_its_text_and_a_bad_one_falls_back) {
    const RGBColor orange{0xFF, 0x80, 0x00};
    for (const char* good : {"#FF8000", "ff8000", "  Ff8000 ", " #ff8000"}) {
        preferences.colorDisk = good;
        EXPECT_EQ(row("colorDisk").color.own, std::optional(orange)) << good;
        EXPECT_TRUE(row("colorDisk").canReset);
    }
    for (const char* bad :
         {"FFF", "GGGGGG", "#", "FF80001", "0xFF80", "-F8000", "\xF0\x9F\x8E\xA8"}) {
        preferences.colorDisk = bad;
        EXPECT_EQ(row("colorDisk").color, (SeriesTint{SeriesRole::cyan})) << bad;
        EXPECT_TRUE(row("colorDisk").canReset) << bad;
    }
    preferences.colorDisk.clear();
    EXPECT_FALSE(row("colorDisk").canReset);
}

TEST_F(SettingsModelTest, denied_notifications_are_told_and_the_rows_stay_enabled) {
    speak(Language::en);
    isPermitted = false;
    const auto section = describe().sections[8];
    EXPECT_TRUE(section.footer.starts_with("macOS denied notifications"));
    EXPECT_EQ(section.footerSymbol, "exclamationmark.triangle.fill");
    for (const auto& one : section.rows) EXPECT_TRUE(one.isEnabled);
}

TEST_F(SettingsModelTest, languages_are_called_in_the_language_in_force) {
    speak(Language::de);
    preferences.languageCode = "de";
    const auto german = row("languageCode");
    ASSERT_EQ(german.choices.size(), 14U);
    EXPECT_EQ(german.choices[0].label, "Automatisch");
    EXPECT_EQ(german.choices[static_cast<std::size_t>(german.chosen)].label, "Deutsch");
    speak(Language::fr);
    EXPECT_EQ(row("languageCode").choices[1].label, "Allemand");
    preferences.languageCode = "xx";
    EXPECT_EQ(row("languageCode").chosen, 2);
}

TEST_F(SettingsModelTest, a_value_that_no_choice_has_chooses_none) {
    preferences.refreshIntervalSeconds = 0.7;
    preferences.iconFan = "tornado";
    EXPECT_EQ(row("refreshIntervalSeconds").chosen, -1);
    EXPECT_EQ(row("iconFan").chosen, -1);
}

TEST_F(SettingsModelTest, launch_at_login_says_what_the_system_does) {
    preferences.launchAtLogin = true;
    EXPECT_FALSE(row("launchAtLogin").isOn);
}

TEST_F(SettingsModelTest, where_updates_come_with_the_system_their_controls_say_so) {
    EXPECT_TRUE(row("checkUpdates").isEnabled);
    EXPECT_TRUE(row("autoUpdate").isOn);
    updates = std::nullopt;
    EXPECT_FALSE(row("checkUpdates").isEnabled);
    EXPECT_FALSE(row("autoUpdate").isEnabled);
    EXPECT_EQ(row("autoUpdate").tip, updatesBySystemTip);
}

TEST(UpdateNotice, says_what_came_of_it) {
    const auto title = [](const UpdateAnswer& answer) { return describeUpdate(answer).title; };
    using Kind = UpdateAnswer::Kind;
    EXPECT_EQ(title({.kind = Kind::upToDate}), "Vantrix is up to date");
    EXPECT_EQ(title({.kind = Kind::available, .version = "2.0-1"}), "Vantrix 2.0-1 is available");
    EXPECT_EQ(title({.kind = Kind::notPackaged}), "This copy is of no package");
    EXPECT_EQ(describeUpdate({.kind = Kind::failed, .error = "offline"}).message, "offline");
    EXPECT_EQ(describeUpdate({.kind = Kind::failed}).message, "The system did not say why.");
}

TEST_F(SettingsModelTest, a_version_that_is_not_known_reads_as_a_dash) {
    EXPECT_EQ(row("version").value, "—");
    EXPECT_EQ(row("build").value, "—");
    const auto known =
        describeSettings({.preferences = preferences, .version = "1.2", .build = "345"});
    EXPECT_EQ(row(known, "version").value, "1.2");
    EXPECT_EQ(row(known, "build").value, "345");
}

TEST_F(SettingsModelTest, a_check_for_updates_is_told_while_it_lasts) {
    EXPECT_EQ(row("checkUpdates").note, "");
    const auto checking = describeSettings(
        {.preferences = preferences, .updatesAutomatically = true, .isCheckingForUpdates = true});
    EXPECT_EQ(row(checking, "checkUpdates").note, checkingForUpdates);
}

}  // namespace
}  // namespace vtx
