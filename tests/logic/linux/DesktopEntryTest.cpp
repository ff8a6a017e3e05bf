// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntry.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

using Command = std::vector<std::string>;

std::optional<Command> commandOf(const std::string& exec) {
    const auto entry = parseDesktopEntry("[Desktop Entry]\nType=Application\nExec=" + exec + "\n");
    return entry ? std::optional(entry->command) : std::nullopt;
}

TEST(DesktopEntry, the_program_stands_with_its_arguments) {
    EXPECT_EQ(commandOf("gnome-system-monitor"), Command{"gnome-system-monitor"});
    EXPECT_EQ(commandOf("  monitor   -a  b "), (Command{"monitor", "-a", "b"}));
}

TEST(DesktopEntry, what_stands_for_files_is_left_out) {
    EXPECT_EQ(commandOf("monitor %U"), Command{"monitor"});
    EXPECT_EQ(commandOf("monitor --name=%c 100%%"), (Command{"monitor", "--name=", "100%"}));
    EXPECT_EQ(commandOf("monitor %"), Command{"monitor"});
}

TEST(DesktopEntry, quotes_hold_a_word_together) {
    EXPECT_EQ(commandOf(R"("/opt/my program/run" "a \\"b\\" c")"),
              (Command{"/opt/my program/run", R"(a "b" c)"}));
    EXPECT_EQ(commandOf(R"(monitor "unclosed word)"), (Command{"monitor", "unclosed word"}));
}

TEST(DesktopEntry, only_its_own_group_counts_and_the_first_line_in_it) {
    const auto entry = parseDesktopEntry(
        "# comment\n[Desktop Action new]\nExec=other\n[Desktop Entry]\nName[de]=Monitor\n"
        "Exec = right\nExec=late\n[Desktop Action x]\nTerminal=true\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->command, Command{"right"});
    EXPECT_FALSE(entry->needsTerminal);
}

TEST(DesktopEntry, terminal_and_hidden_are_told) {
    const auto entry = parseDesktopEntry("[Desktop Entry]\nExec=htop\nTerminal=true\nHidden=true");
    ASSERT_TRUE(entry);
    EXPECT_TRUE(entry->needsTerminal);
    EXPECT_TRUE(entry->isHidden);
}

TEST(DesktopEntry, without_a_program_there_is_none) {
    for (const char* text : {"", "Exec=x", "[Desktop Entry]\n", "[Desktop Entry]\nExec=\n",
                             "[Desktop Entry]\nExec= %U \n", "[Desktop Entry", "\0\xFF="})
        EXPECT_FALSE(parseDesktopEntry(text)) << text;
}

TEST(DesktopEntry, escapes_of_the_file_are_those_characters) {
    EXPECT_EQ(commandOf(R"(a\sb "c\sd\te\nf\rg")"), (Command{"a", "b", "c d\te\nf\rg"}));
    EXPECT_EQ(commandOf(R"(a\qb\)"), Command{R"(aqb\)"});
    EXPECT_EQ(commandOf(R"(a "b\)"), (Command{"a", R"(b\)"}));
}

}  // namespace
}  // namespace vtx
