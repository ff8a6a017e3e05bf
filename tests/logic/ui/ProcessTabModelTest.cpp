// SPDX-License-Identifier: MIT
#include "ui/models/ProcessTabModel.h"

#include <gtest/gtest.h>

#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

TEST(ProcessTabModel, with_rows_nothing_stands_in_their_place) {
    EXPECT_EQ(describeProcessPlaceholder({.search = "x", .shown = 1}), std::nullopt);
}

TEST(ProcessTabModel, before_the_first_list_it_loads) {
    EXPECT_EQ(describeProcessPlaceholder({}),
              (ProcessPlaceholderModel{"hourglass", "Loading processes…"}));
}

TEST(ProcessTabModel, a_search_without_a_match_is_quoted_as_it_was_typed) {
    EXPECT_EQ(describeProcessPlaceholder({.search = " Pyhton"}),
              (ProcessPlaceholderModel{"magnifyingglass", "No matches for \" Pyhton\""}));
}

TEST(ProcessTabModel, the_footer_counts_and_tells_the_age_of_the_list) {
    AppBench bench;
    EXPECT_EQ(describeProcessFooter({.shown = 3, .total = 412, .secondsSinceRefresh = 2.4}),
              (ProcessFooterModel{"3 of 412", "Updated 2 seconds ago"}));
    EXPECT_EQ(describeProcessFooter({}), (ProcessFooterModel{"0 of 0", ""}));
}

TEST(ProcessTabModel, the_age_is_in_the_language_in_force) {
    AppBench bench;
    Localization::shared().setPreference(Language::de);
    EXPECT_EQ(describeProcessFooter({.secondsSinceRefresh = 1.0}).updated, "Updated vor 1 Sekunde");
}

}  // namespace
}  // namespace vtx
