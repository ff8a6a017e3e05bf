// SPDX-License-Identifier: MIT
#include "ui/surfaces/HistoryRangePicker.h"

#include <gtest/gtest.h>

#include "SurfaceBench.h"

namespace vtx {
namespace {

using HistoryRange = DisplayPreferences::HistoryRange;

class HistoryRangePickerTest : public testing::Test {
protected:
    test::SurfaceBench bench;
    HistoryRangePicker picker{bench.coordinator};
};

TEST_F(HistoryRangePickerTest, offers_the_windows_in_order_under_fixed_labels) {
    Localization::shared().setPreference(Language::de);
    test::show(picker);
    QStringList labels;
    for (int i = 0; i < picker.partCount(); ++i) labels << picker.part(i).name;
    EXPECT_EQ(labels, (QStringList{"60s", "5m", "15m", "1h"}));
}

TEST_F(HistoryRangePickerTest, a_choice_changes_the_window_and_nothing_else) {
    test::show(picker);
    DisplayPreferences expected = *bench.coordinator.preferences;
    expected.historyRange = HistoryRange::oneHour;
    picker.pressPart(3);
    EXPECT_EQ(*bench.coordinator.preferences, expected);
}

TEST_F(HistoryRangePickerTest, is_called_by_its_purpose_in_the_language_in_force) {
    test::show(picker);
    bench.change([](auto& p) { p.historyRange = HistoryRange::oneHour; });
    EXPECT_EQ(picker.accessibleName(), "Graphs") << "whatever is chosen";
    Localization::shared().setPreference(Language::de);
    EXPECT_EQ(picker.accessibleName(), "Diagramme");
    EXPECT_TRUE(picker.part(3).selected) << "the value is told by its segment";
    picker.hide();
    EXPECT_FALSE(Localization::shared().effective.hasSubscribers());
}

TEST_F(HistoryRangePickerTest, follows_the_preference_only_while_it_is_shown) {
    test::show(picker);
    bench.change([](auto& p) { p.historyRange = HistoryRange::fifteenMinutes; });
    EXPECT_EQ(picker.current(), 2);
    picker.hide();
    bench.change([](auto& p) { p.historyRange = HistoryRange::fiveMinutes; });
    EXPECT_EQ(picker.current(), 2);
    test::show(picker);
    EXPECT_EQ(picker.current(), 1);
}

}  // namespace
}  // namespace vtx
