// SPDX-License-Identifier: MIT
// What counts as the system's among the processes of the user, and how processes are called.
#include "platform/linux/SystemSoftware.h"

#include <gtest/gtest.h>

#include "platform/linux/ProcessName.h"

namespace vtx::test {
namespace {

using enum ControlGroupRole;

constexpr std::string_view session = "/user.slice/user-1000.slice/user@1000.service";

ControlGroupRole roleBelow(std::string_view path) {
    return controlGroupRole(std::string(session).append(path));
}

TEST(ControlGroup, applications_have_units_of_their_own) {
    for (const auto* path :
         {"/app.slice/app-gnome-org.gnome.Calculator-4711.scope",
          "/app.slice/app-org.kde.konsole-1f.scope/tab(99).scope",
          "/app.slice/app-org.gnome.Terminal.slice/vte-spawn-7b.scope",
          "/app.slice/app-org.gnome.Terminal.slice/gnome-terminal-server.service",
          "/app.slice/app-flatpak-org.example.Reader-12.scope", "/app.slice/run-r1f.scope"})
        EXPECT_EQ(roleBelow(path), application) << path;
}

TEST(ControlGroup, services_of_the_session_may_be_anybodys) {
    for (const auto* path :
         {"/app.slice/gvfs-daemon.service", "/app.slice/dbus.service", "/app.slice",
          "/background.slice/tracker-miner-fs-3.service", "/mine.slice/backup.service"})
        EXPECT_EQ(roleBelow(path), service) << path;
}

TEST(ControlGroup, the_session_itself_and_the_machine_are_the_systems) {
    for (const auto* path : {"/session.slice/org.gnome.Shell@wayland.service", "/init.scope", ""})
        EXPECT_EQ(roleBelow(path), system) << path;
    EXPECT_EQ(controlGroupRole("/system.slice/cron.service"), system);
    EXPECT_EQ(controlGroupRole("/init.scope"), system);
}

TEST(ControlGroup, elsewhere_it_says_nothing) {
    for (const auto* path : {"", "/", "/user.slice/user-1000.slice/session-2.scope", "/docker/0123",
                             "//", "app.slice", "/user@1000.slice/app.slice"})
        EXPECT_EQ(controlGroupRole(path), unknown) << path;
}

TEST(ControlGroup, the_unified_hierarchy_counts_before_the_session_managers_own) {
    EXPECT_EQ(controlGroupPath("0::/a\n"), "/a");
    EXPECT_EQ(controlGroupPath("1:name=systemd:/b\n0::/a\n"), "/a");
    EXPECT_EQ(controlGroupPath("0::/a\n1:name=systemd:/b\n"), "/a");
    EXPECT_EQ(controlGroupPath("12:pids:/c\n1:name=systemd:/b\n0::/\n"), "/b");
    EXPECT_EQ(controlGroupPath("12:pids:/c\n"), "");
    EXPECT_EQ(controlGroupPath("0::/a:b\n"), "/a:b");
}

TEST(ControlGroup, what_is_no_such_text_gives_no_path) {
    for (const auto* text : {"", "\n\n", "0", "0:", "::", "0:/a", "\xFF\xFF:\xFF"})
        EXPECT_EQ(controlGroupPath(text), "") << text;
}

TEST(SystemSoftware, an_applications_group_decides_whatever_it_is) {
    EXPECT_FALSE(isSystemSoftware(application, "gnome-shell", "/usr/libexec/x"));
    EXPECT_TRUE(isSystemSoftware(system, "editor", "/home/me/editor"));
}

TEST(SystemSoftware, without_a_group_that_decides_programs_of_the_user_are_the_users) {
    for (const auto role : {service, unknown}) {
        EXPECT_FALSE(isSystemSoftware(role, "editor", "/usr/bin/editor"));
        EXPECT_FALSE(isSystemSoftware(role, "backup", "/home/me/bin/backup"));
        EXPECT_FALSE(isSystemSoftware(role, "bash", "/bin/bash"));
        EXPECT_FALSE(isSystemSoftware(role, "x", "/opt/x"));
    }
}

TEST(SystemSoftware, the_desktop_is_the_systems_by_name_or_by_folder) {
    for (const auto role : {service, unknown}) {
        EXPECT_TRUE(isSystemSoftware(role, "gnome-shell", "/usr/bin/gnome-shell"));
        EXPECT_TRUE(isSystemSoftware(role, "renamed", "/usr/bin/Xorg"));
        EXPECT_TRUE(isSystemSoftware(role, "dbus-daemon", "/usr/bin/dbus-daemon"));
        EXPECT_TRUE(isSystemSoftware(role, "gvfsd", "/usr/libexec/gvfsd"));
        EXPECT_TRUE(isSystemSoftware(role, "systemd", ""));
    }
}

constexpr std::string_view cut = "gnome-terminal-";

TEST(ProcessName, a_short_name_is_whole) {
    EXPECT_EQ(wholeName("bash", "/usr/bin/bash-of-another-name", "x"), "bash");
    EXPECT_EQ(wholeName("a-name-of-16-byt", "/x/a-name-of-16-bytes", {}), "a-name-of-16-byt");
}

TEST(ProcessName, a_cut_name_is_continued_by_the_executable) {
    EXPECT_EQ(wholeName(cut, "/usr/libexec/gnome-terminal-server", {}), "gnome-terminal-server");
    EXPECT_EQ(wholeName(cut, "/usr/libexec/gnome-terminal-", {}), cut);
    EXPECT_EQ(wholeName(cut, "/usr/libexec/another", {}), cut);
}

TEST(ProcessName, the_cut_name_of_a_script_is_continued_by_an_argument) {
    const std::string_view arguments("/usr/bin/python3\0-I\0/opt/gnome-terminal-helper\0file\0",
                                     53);
    EXPECT_EQ(wholeName(cut, "/usr/bin/python3.11", arguments), "gnome-terminal-helper");
}

TEST(ProcessName, arguments_that_break_off_continue_nothing) {
    EXPECT_EQ(wholeName(cut, {}, "gnome-terminal-hel"), cut);
    EXPECT_EQ(wholeName(cut, {}, std::string_view("\0\0\0\0\0\0\0gnome-terminal-x\0", 24)), cut);
    EXPECT_EQ(wholeName(cut, {}, std::string_view("gnome-terminal-\0", 16)), cut);
    EXPECT_EQ(wholeName(cut, "/x/gnome-terminus-server", {}), cut);
    const std::string huge = std::string(cut) + std::string(4000, 'x') + '\0';
    EXPECT_EQ(wholeName(cut, {}, huge), cut);
}

}  // namespace
}  // namespace vtx::test
