// SPDX-License-Identifier: MIT
#include "language/TextTable.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

using L10n::Key;

constexpr TextEntry overview[] = {{Key::section_overview, "Übersicht"}};
constexpr TextEntry idleAndUsed[] = {{Key::cpu_idle, "Idle"}, {Key::memory_used, "used"}};
constexpr TextEntry usedAnew[] = {{Key::memory_used, "in use"}};
constexpr TextEntry idleTwice[] = {{Key::cpu_idle, "Idle"}, {Key::cpu_idle, "Idle"}};
constexpr TextEntry noWords[] = {{Key::cpu_idle, ""}};

TEST(TextTable, holds_the_texts_of_both_lists) {
    const TextTable table({idleAndUsed, overview});

    EXPECT_EQ(table.text(Key::cpu_idle), "Idle");
    EXPECT_EQ(table.text(Key::section_overview), "Übersicht");
}

TEST(TextTable, the_additions_win_where_a_key_stands_in_both_lists) {
    EXPECT_EQ(TextTable({idleAndUsed, usedAnew}).text(Key::memory_used), "in use");
    EXPECT_EQ(TextTable({usedAnew, idleAndUsed}).text(Key::memory_used), "used");
}

TEST(TextTable, a_key_in_neither_list_is_absent_whereas_an_empty_text_is_there) {
    const TextTable table({noWords, {}});

    EXPECT_EQ(table.text(Key::memory_used), std::nullopt);
    EXPECT_EQ(table.text(Key::cpu_idle), "");
}

TEST(TextTable, takes_one_view_for_each_key_and_copies_no_text) {
    EXPECT_EQ(sizeof(TextTable), L10n::keyCount * sizeof(std::string_view));
    EXPECT_EQ(TextTable({overview, {}}).text(Key::section_overview)->data(), overview[0].text);
}

TEST(TextTableDeathTest, a_key_twice_in_one_list_stops_the_program_and_is_named) {
    EXPECT_DEATH(TextTable({idleTwice, {}}), "cpu_idle twice");
    EXPECT_DEATH(TextTable({{}, idleTwice}), "cpu_idle twice");
}

TEST(TextOf, takes_the_own_text_before_the_english_one) {
    const TextTable english({idleAndUsed, {}});
    const TextTable own({usedAnew, {}});

    EXPECT_EQ(textOf(Key::memory_used, {{}, &own}, {{}, &english}), "in use");
}

TEST(TextOf, a_key_that_the_language_lacks_reads_in_english) {
    const TextTable english({idleAndUsed, {}});
    const TextTable own({overview, {}});

    EXPECT_EQ(textOf(Key::cpu_idle, {{}, &own}, {{}, &english}), "Idle");
}

TEST(TextOf, a_language_without_a_table_reads_in_english) {
    const TextTable english({idleAndUsed, {}});

    EXPECT_EQ(textOf(Key::cpu_idle, {}, {{}, &english}), "Idle");
}

TEST(TextOf, a_key_without_any_text_reads_as_its_name) {
    const TextTable english({idleAndUsed, {}});
    const TextTable own({overview, {}});

    EXPECT_EQ(textOf(Key::fan_load, {{}, &own}, {{}, &english}), "fan_load");
    EXPECT_EQ(textOf(Key::fan_load, {}, {{}, &english}), "fan_load");
}

TEST(TextOf, a_wording_goes_before_the_table_of_its_language) {
    const TextTable english({idleAndUsed, {}});

    EXPECT_EQ(textOf(Key::memory_used, {}, {usedAnew, &english}), "in use");
    EXPECT_EQ(textOf(Key::cpu_idle, {}, {usedAnew, &english}), "Idle");
}

TEST(TextOf, the_own_text_goes_before_an_english_wording) {
    const TextTable english({idleAndUsed, {}});
    const TextTable own({idleAndUsed, {}});

    EXPECT_EQ(textOf(Key::memory_used, {{}, &own}, {usedAnew, &english}), "used");
}

}  // namespace
}  // namespace vtx
