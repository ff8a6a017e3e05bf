// SPDX-License-Identifier: MIT
#include "ui/models/ProcessMenuModel.h"

#include <gtest/gtest.h>

#include "support/Snapshots.h"
#include "ui/models/PendingRenice.h"

namespace vtx {
namespace {

std::vector<std::string_view> titles(const ProcessSnapshot& process, ProcessMenuContext context) {
    std::vector<std::string_view> all;
    for (const auto& entry : describeProcessMenu(process, context)) all.push_back(entry.title);
    return all;
}

TEST(ProcessMenu, of_the_users_own_process_offers_its_file_and_its_priority) {
    EXPECT_EQ(titles(snapshotOf(200), {.isModifiable = true}),
              (std::vector<std::string_view>{"Im Finder zeigen", "Pfad kopieren",
                                             "Activity Monitor öffnen", "", "Default priority",
                                             "Lower priority", "Lowest (prefer E-cores)"}));
}

TEST(ProcessMenu, of_a_protected_process_says_so) {
    const auto menu = describeProcessMenu(snapshotOf(200), {.isModifiable = false});
    EXPECT_EQ(menu.back(), (ProcessMenuEntry{"Protected", ProcessAction::none, 0, false}));
    EXPECT_EQ(menu.size(), 5U);
    EXPECT_TRUE(menu[3].isSeparator());
}

TEST(ProcessMenu, without_a_path_offers_no_file) {
    auto process = snapshotOf(200);
    process.executablePath.reset();
    EXPECT_EQ(titles(process, {}),
              (std::vector<std::string_view>{"Activity Monitor öffnen", "", "Protected"}));
}

TEST(ProcessMenu, each_priority_asks_for_its_niceness) {
    const auto menu = describeProcessMenu(snapshotOf(200), {.isModifiable = true});
    for (const auto& [at, nice] : {std::pair{4U, 0}, {5U, 5}, {6U, 10}}) {
        EXPECT_EQ(menu[at].action, ProcessAction::renice);
        EXPECT_EQ(menu[at].nice, nice);
        EXPECT_TRUE(menu[at].isEnabled);
    }
}

TEST(ProcessMenu, a_machine_without_a_system_monitor_cannot_open_one) {
    const auto menu = describeProcessMenu(snapshotOf(200), {.hasSystemMonitor = false});
    EXPECT_EQ(menu[2].action, ProcessAction::openSystemMonitor);
    EXPECT_FALSE(menu[2].isEnabled);
}

struct Label {
    std::int32_t nice;
    const char* text;
};
class PendingReniceLabel : public testing::TestWithParam<Label> {};

TEST_P(PendingReniceLabel, names_the_priority) {
    EXPECT_EQ((PendingRenice{.nice = GetParam().nice}.label()), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Each, PendingReniceLabel,
                         testing::Values(Label{0, "Default priority"}, Label{1, "Lower priority"},
                                         Label{5, "Lower priority"}, Label{9, "Lower priority"},
                                         Label{10, "Lowest priority (prefer E-cores)"},
                                         Label{20, "Lowest priority (prefer E-cores)"},
                                         Label{21, "Nice = 21"}, Label{-1, "Nice = -1"}));

TEST(PendingRenice, is_confirmed_with_its_process_and_its_priority) {
    const auto dialog = describeConfirmation({.snapshot = snapshotOf(47002), .nice = 5});
    EXPECT_EQ(dialog.title, "Set \"node\" to Lower priority");
    EXPECT_EQ(dialog.message,
              "PID 47002. This biases the kernel scheduler — it does not pin the process to "
              "specific cores. The setting is reverted when the process restarts.");
    EXPECT_EQ(dialog.primary, "Apply");
    EXPECT_EQ(dialog.cancel, "Cancel");
}

TEST(PendingRenice, each_has_an_identity_of_its_own) {
    EXPECT_NE(PendingRenice{}.id, PendingRenice{}.id);
}

TEST(PendingRenice, a_failure_is_told_in_its_own_words_with_one_button) {
    const auto dialog = describeReniceFailure("It is so.");
    EXPECT_EQ(dialog.title, "Couldn't change priority");
    EXPECT_EQ(dialog.message, "It is so.");
    EXPECT_FALSE(dialog.primary.empty());
    EXPECT_TRUE(dialog.cancel.empty());
}

}  // namespace
}  // namespace vtx
