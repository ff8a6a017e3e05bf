// SPDX-License-Identifier: MIT
#include "platform/linux/SystemMonitor.h"

#include <gtest/gtest.h>

#include <map>

#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

using Command = std::vector<std::string>;

/// A machine on which a test installs what it likes.
struct SystemMonitors : testing::Test {
    void install(const std::string& entry, const std::string& program,
                 const std::string& more = "") {
        tree.write("/usr/bin/" + program, "");
        addEntry("/usr/share", entry, program, more);
    }
    void addEntry(const std::string& folder, const std::string& entry, const std::string& program,
                  const std::string& more = "") {
        tree.write(folder + "/applications/" + entry + ".desktop",
                   "[Desktop Entry]\nExec=" + program + " %U\n" + more);
    }

    TemporaryTree tree;
    LinuxRoot root{tree.path()};
    std::map<std::string, std::string, std::less<>> variables{{"HOME", "/home/me"}};
    std::vector<Command> started;
    SystemMonitor monitor{root,
                          [this](std::string_view name) -> std::optional<std::string> {
                              const auto found = variables.find(name);
                              if (found == variables.end()) return std::nullopt;
                              return found->second;
                          },
                          [this](const Command& command) { started.push_back(command); }};
};

TEST_F(SystemMonitors, a_machine_without_one_has_none_and_opens_nothing) {
    EXPECT_EQ(monitor.command(), std::nullopt);
    monitor.open();
    EXPECT_TRUE(started.empty());
}

TEST_F(SystemMonitors, one_that_is_installed_is_opened_without_files) {
    install("org.gnome.SystemMonitor", "gnome-system-monitor");
    monitor.open();
    EXPECT_EQ(started, std::vector<Command>{{"gnome-system-monitor"}});
}

TEST_F(SystemMonitors, the_running_desktops_own_comes_first) {
    install("org.gnome.SystemMonitor", "gnome-system-monitor");
    install("org.kde.plasma-systemmonitor", "plasma-systemmonitor");
    EXPECT_EQ(monitor.command(), Command{"gnome-system-monitor"});
    variables["XDG_CURRENT_DESKTOP"] = "ubuntu:KDE";
    EXPECT_EQ(monitor.command(), Command{"plasma-systemmonitor"});
}

TEST_F(SystemMonitors, an_entry_whose_program_is_gone_does_not_count) {
    addEntry("/usr/share", "org.gnome.SystemMonitor", "gnome-system-monitor");
    EXPECT_EQ(monitor.command(), std::nullopt);
    addEntry("/usr/share", "xfce4-taskmanager", "/opt/task manager");
    EXPECT_EQ(monitor.command(), std::nullopt);
    tree.write("/usr/share/applications/lxtask.desktop", "[Other]\nExec=lxtask\n");
    EXPECT_EQ(monitor.command(), std::nullopt) << "it names no program";
}

TEST_F(SystemMonitors, one_that_needs_a_terminal_or_is_hidden_does_not_count) {
    install("qps", "qps", "Terminal=true\n");
    install("lxtask", "lxtask", "Hidden=true\n");
    EXPECT_EQ(monitor.command(), std::nullopt);
}

TEST_F(SystemMonitors, the_users_own_entry_hides_the_systems) {
    install("lxtask", "lxtask");
    addEntry("/home/me/.local/share", "lxtask", "lxtask", "Hidden=true\n");
    EXPECT_EQ(monitor.command(), std::nullopt);
}

TEST_F(SystemMonitors, the_folders_are_those_that_the_environment_names) {
    variables["XDG_DATA_DIRS"] = "/nothing::/var/lib/exports/share";
    variables["PATH"] = "/opt/bin";
    addEntry("/var/lib/exports/share", "net.nokyan.Resources", "resources");
    tree.write("/opt/bin/resources", "");
    EXPECT_EQ(monitor.command(), Command{"resources"});
}

}  // namespace
}  // namespace vtx::test
