// SPDX-License-Identifier: MIT
#include "ui/models/ChartRange.h"

#include <gtest/gtest.h>

#include "language/Localization.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

using HistoryRange = DisplayPreferences::HistoryRange;

class ChartRangeTest : public testing::Test {
protected:
    AppBench bench;
};

TEST_F(ChartRangeTest, only_the_shortest_window_is_named_in_the_language_in_force) {
    EXPECT_EQ(historyTitle(HistoryRange::oneMinute), "Last 60 s");
    Localization::shared().setPreference(Language::de);
    EXPECT_EQ(historyTitle(HistoryRange::oneMinute),
              Localization::shared().string(L10n::Key::last60s));
    EXPECT_NE(historyTitle(HistoryRange::oneMinute), "Last 60 s");
    EXPECT_EQ(historyTitle(HistoryRange::fiveMinutes), "Last 5 m");
    EXPECT_EQ(historyTitle(HistoryRange::fifteenMinutes), "Last 15 m");
    EXPECT_EQ(historyTitle(HistoryRange::oneHour), "Last 1 h");
}

TEST_F(ChartRangeTest, the_labels_are_the_same_in_every_language) {
    Localization::shared().setPreference(Language::ja);
    std::string labels;
    for (const HistoryRange range : DisplayPreferences::allHistoryRanges) {
        labels += historyLabel(range);
        labels += ' ';
    }
    EXPECT_EQ(labels, "60s 5m 15m 1h ");
}

TEST_F(ChartRangeTest, what_stands_for_an_empty_chart_follows_the_language) {
    EXPECT_EQ(collectingText(), "Collecting…");
    Localization::shared().setPreference(Language::de);
    EXPECT_NE(collectingText(), "Collecting…");
}

}  // namespace
}  // namespace vtx
