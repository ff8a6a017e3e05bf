// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxAppService.h"

#include <gtest/gtest.h>

#include "linux/OrdinaryUser.h"
#include "linux/TemporaryTree.h"
#include "platform/linux/AutostartEntry.h"

namespace vtx {
namespace {

namespace fs = std::filesystem;

// A program that is on every machine.
constexpr auto program = "/bin/sh";

struct AutostartBench {
    test::TemporaryTree tree;
    fs::path folder = tree / "config/autostart";
    fs::path file = folder / "vantrix.desktop";
    LinuxAppService service{folder, program};

    void write(std::string_view text) const {
        fs::create_directories(folder);
        test::writeFile(file, text);
    }
};

std::string entry(std::string_view lines) {
    return "[Desktop Entry]\nType=Application\nName=Vantrix\n" + std::string(lines);
}

TEST(LinuxAppService, without_a_file_it_is_not_registered) {
    AutostartBench bench;
    EXPECT_EQ(bench.service.status(), 0);
    EXPECT_EQ(bench.service.unregisterService(), std::nullopt);
    EXPECT_FALSE(fs::exists(bench.folder));
}

TEST(LinuxAppService, registering_writes_a_file_that_says_enabled_and_unregistering_removes_it) {
    AutostartBench bench;
    EXPECT_EQ(bench.service.registerService(), std::nullopt);
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
    EXPECT_EQ(test::namesIn(bench.folder), std::set<std::string>{"vantrix.desktop"});
    EXPECT_EQ(bench.service.unregisterService(), std::nullopt);
    EXPECT_EQ(bench.service.status(), 0);
    EXPECT_TRUE(test::namesIn(bench.folder).empty());
}

TEST(LinuxAppService, registering_again_leaves_the_file_untouched) {
    AutostartBench bench;
    ASSERT_EQ(bench.service.registerService(), std::nullopt);
    // Whatever is written would take the place of the file, which the second name would not follow.
    fs::create_hard_link(bench.file, bench.tree / "second name");
    EXPECT_EQ(bench.service.registerService(), std::nullopt);
    EXPECT_EQ(fs::hard_link_count(bench.file), 2U);
}

TEST(LinuxAppService, a_file_in_the_place_of_the_folder_is_told_in_words) {
    AutostartBench bench;
    test::writeFile(bench.tree / "config", "no folder");
    const auto error = bench.service.registerService();
    ASSERT_TRUE(error);
    EXPECT_NE(error->find("vantrix.desktop"), std::string::npos);
}

TEST(LinuxAppService, what_turns_an_entry_off_elsewhere_is_respected) {
    AutostartBench bench;
    for (const char* off : {"Exec=/bin/sh\nHidden=true\n", "Hidden = true\nExec=/bin/sh\n", "",
                            "Exec=\n", "Exec=/bin/sh\nX-GNOME-Autostart-enabled=false\n"}) {
        bench.write(entry(off));
        EXPECT_EQ(bench.service.status(), 0) << off;
    }
    bench.write("garbage \x01 without a group\nExec=/bin/sh\n");
    EXPECT_EQ(bench.service.status(), 0);
    bench.write("[Other]\nHidden=true\n" +
                entry("Exec=/bin/sh\n[Desktop Action x]\nHidden=true\n"));
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
}

TEST(LinuxAppService, a_command_of_the_users_own_survives_being_turned_off_and_on) {
    AutostartBench bench;
    const std::string own = entry("Exec=/bin/sh -c \"sleep 5; vantrix\"\nX-KDE-autostart=x\n");
    bench.write(own);
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
    EXPECT_EQ(bench.service.unregisterService(), std::nullopt);
    EXPECT_EQ(bench.service.status(), 0);
    EXPECT_EQ(test::contentsOf(bench.file), own + "Hidden=true\n");
    EXPECT_EQ(bench.service.registerService(), std::nullopt);
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
    EXPECT_EQ(test::contentsOf(bench.file), own + "Hidden=false\n");
}

TEST(LinuxAppService, a_command_that_is_not_there_starts_nothing_and_is_replaced) {
    AutostartBench bench;
    bench.write(entry("Exec=/nonexistent/vantrix\n"));
    EXPECT_EQ(bench.service.status(), 3);
    EXPECT_EQ(bench.service.registerService(), std::nullopt);
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
}

TEST(LinuxAppService, with_a_command_that_is_replaced_the_users_other_lines_stay) {
    AutostartBench bench;
    bench.write("# mine\n" + entry("Exec=/nonexistent/vantrix\nHidden=true\nX-Delay=10\n"));
    EXPECT_EQ(bench.service.registerService(), std::nullopt);
    EXPECT_EQ(test::contentsOf(bench.file),
              "# mine\n" + entry("Exec=\"/bin/sh\"\nHidden=false\nX-Delay=10\n"));
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
    bench.write("no entry at all");
    EXPECT_EQ(bench.service.registerService(), std::nullopt);
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
}

TEST(LinuxAppService, a_condition_that_does_not_hold_starts_nothing_and_is_replaced) {
    AutostartBench bench;
    bench.write(entry("Exec=/bin/sh\nTryExec=/nonexistent/vantrix\n"));
    EXPECT_EQ(bench.service.status(), 3);
    EXPECT_EQ(bench.service.registerService(), std::nullopt);
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
    bench.write(entry("Exec=/bin/sh\nTryExec=\n"));
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
    bench.write(entry("Exec=/bin/sh\nTryExec=sh\n"));
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
}

TEST(LinuxAppService, an_image_that_only_started_the_program_is_not_registered) {
    const fs::path own = fs::read_symlink("/proc/self/exe");
    const auto running = [](const std::optional<std::string>& mount,
                            const std::string& image = "/opt/some.AppImage") {
        return LinuxAppService::runningExecutable(
            [&](std::string_view name) -> std::optional<std::string> {
                if (name == "APPIMAGE") return image;
                if (name == "APPDIR") return mount;
                return std::nullopt;
            });
    };
    EXPECT_EQ(running(std::nullopt), own);
    EXPECT_EQ(running(own.parent_path().string(), ""), own);
    EXPECT_EQ(running(own.parent_path().string()), "/opt/some.AppImage");
    for (const char* other : {"", "/tmp/.mount_terminal", "/"})
        EXPECT_EQ(running(other), own) << other;
}

TEST(LinuxAppService, a_folder_that_cannot_be_written_is_told_in_words_and_changes_nothing) {
    AutostartBench bench;
    const test::OrdinaryUser user(bench.tree.path(), bench.tree.path());
    if (!user.isBoundByPermissions()) GTEST_SKIP() << "permissions bind nobody here";
    fs::create_directories(bench.folder);
    fs::permissions(bench.folder, fs::perms::owner_read | fs::perms::owner_exec);
    const auto error = bench.service.registerService();
    ASSERT_TRUE(error);
    EXPECT_NE(error->find("vantrix.desktop"), std::string::npos);
    EXPECT_EQ(bench.service.status(), 0);
    fs::permissions(bench.folder, fs::perms::owner_all);
}

TEST(LinuxAppService, what_is_no_file_is_told_in_words) {
    AutostartBench bench;
    fs::create_directories(bench.file);
    EXPECT_TRUE(bench.service.registerService());
    EXPECT_TRUE(bench.service.unregisterService());
    EXPECT_EQ(bench.service.status(), 0);
    LinuxAppService homeless({}, program);
    EXPECT_TRUE(homeless.registerService());
    EXPECT_EQ(homeless.status(), 0);
}

TEST(LinuxAppService, a_link_stays_one) {
    AutostartBench bench;
    fs::create_directories(bench.folder);
    fs::create_symlink(bench.tree / "dotfiles.desktop", bench.file);
    EXPECT_EQ(bench.service.registerService(), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(bench.file));
    EXPECT_EQ(bench.service.status(), AppService::enabledStatus);
}

TEST(LinuxAppService, the_folder_follows_the_environment) {
    const Environment set = [](std::string_view name) -> std::optional<std::string> {
        if (name == "XDG_CONFIG_HOME") return "/somewhere/config";
        return std::nullopt;
    };
    EXPECT_EQ(LinuxAppService::standardFolder(set), "/somewhere/config/autostart");
}

TEST(AutostartEntry, a_command_is_quoted_so_that_its_program_is_found_again) {
    for (const char* path : {"/usr/bin/vantrix", "/opt/my apps/vantrix", "/a\"b`c$d\\e/100%/v"})
        EXPECT_EQ(autostart::programOf(autostart::commandFor(path)), path);
    EXPECT_EQ(autostart::commandFor("/a b/100%$"), R"("/a b/100%%\\$")");
}

TEST(AutostartEntry, a_key_is_set_where_it_stands_or_at_the_end_of_its_group) {
    EXPECT_EQ(autostart::withValue("[Desktop Entry]\nA=1\nB=2\nA=3\n", "A", "x"),
              "[Desktop Entry]\nA=x\nB=2\n");
    EXPECT_EQ(autostart::withValue("[Desktop Entry]\nB=2\n[Other]\nA=1\n", "A", "x"),
              "[Desktop Entry]\nB=2\nA=x\n[Other]\nA=1\n");
    EXPECT_EQ(autostart::withValue("no group", "A", "x"), "no group\n");
}

TEST(AutostartEntry, a_program_is_found_behind_the_escapes_of_the_file) {
    const std::pair<const char*, const char*> cases[] = {
        {R"("/opt/a\sb\tc\nd/run" --closed)", "/opt/a b\tc\nd/run"},
        {R"(/opt/a\sb)", "/opt/a"},
        {R"(/opt/a\\\\b)", R"(/opt/a\b)"},
        {R"(/opt/100%%/run %U)", "/opt/100%/run"},
        {R"(/opt/run%U)", "/opt/run%U"},
        {R"(/opt/run%)", "/opt/run%"},
        {R"(/opt/run\)", R"(/opt/run\)"},
        {"", ""}};
    for (const auto& [command, expected] : cases)
        EXPECT_EQ(autostart::programOf(command), expected) << command;
}

TEST(AutostartEntry, a_path_over_two_lines_is_one_line_of_the_file) {
    EXPECT_EQ(autostart::commandFor("/a\nb"), R"("/a\nb")");
    EXPECT_EQ(autostart::programOf(autostart::commandFor("/a\nb")), "/a\nb");
}

TEST(AutostartEntry, a_group_behind_its_own_changes_nothing_of_what_is_set) {
    EXPECT_EQ(autostart::withValue("[Desktop Entry]\nA=1\n[Other]\nA=2\n", "A", "x"),
              "[Desktop Entry]\nA=x\n[Other]\nA=2\n");
}

TEST(AutostartEntry, hidden_may_be_said_by_a_number) {
    EXPECT_FALSE(autostart::isEnabled("[Desktop Entry]\nExec=/bin/sh\nHidden=1\n"));
    EXPECT_TRUE(autostart::isEnabled("[Desktop Entry]\nExec=/bin/sh\nHidden=0\n"));
}

}  // namespace
}  // namespace vtx
