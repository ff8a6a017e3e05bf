// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxWorkspace.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include <array>
#include <memory>

#include "base/Log.h"
#include "linux/PrivateBus.h"
#include "platform/linux/PollRunLoop.h"
#include "platform/simulated/SimulatedUnifiedLog.h"

namespace vtx::test {
namespace {

constexpr Duration longEnough = std::chrono::seconds(60);
constexpr auto managerInterface = "org.freedesktop.login1.Manager";

/// A login manager as far as sleep goes. An inhibitor is the writing end of a pipe, which has gone
/// when the reading end says so.
class FakeLoginManager {
public:
    FakeLoginManager(RunLoop& loop, const std::string& address)
        : loop_(loop),
          service_(loop, address, "org.freedesktop.login1", "/org/freedesktop/login1",
                   [this](sd_bus_message* message) { return answer(message); }) {}

    void prepareForSleep(bool isStarting) {
        service_.emit(managerInterface, "PrepareForSleep", isStarting);
    }
    void emitNonsense() {
        service_.emit(managerInterface, "PrepareForSleep", std::string("maybe"));
    }

    /// Inhibitors given, and whether the last one is still held.
    int inhibitorsGiven = 0;
    /// Lets the machine go to sleep while the wish for an inhibitor is under way.
    bool sleepsBeforeAnswering = false;
    std::string lastMode;
    [[nodiscard]] bool isHeld() const { return static_cast<bool>(released_); }

private:
    int answer(sd_bus_message* message) {
        if (!sd_bus_message_is_method_call(message, managerInterface, "Inhibit")) return 0;
        const char *what = nullptr, *who = nullptr, *why = nullptr, *mode = nullptr;
        sd_bus_message_read(message, "ssss", &what, &who, &why, &mode);
        lastMode = std::string(what) + "/" + mode;
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) return -1;
        released_ = {};
        inhibitor_ = FileDescriptor(ends[0]);
        released_ = loop_.watch(inhibitor_.get(), 0, [this] { released_ = {}; });
        const FileDescriptor given(ends[1]);
        ++inhibitorsGiven;
        if (sleepsBeforeAnswering) prepareForSleep(true);
        return sd_bus_reply_method_return(message, "h", given.get());
    }

    RunLoop& loop_;
    FileDescriptor inhibitor_;
    Subscription released_;  ///< watches for the writing end to go
    FakeService service_;
};

struct LinuxWorkspaceTest : testing::Test {
    void SetUp() override {
        if (!daemon.isRunning()) GTEST_SKIP() << "this machine has no dbus-daemon";
        manager = std::make_unique<FakeLoginManager>(loop, daemon.address());
    }
    [[nodiscard]] bool reaches(const std::function<bool()>& state) {
        return loop.runUntil(state, longEnough);
    }

    PrivateBus daemon;
    PollRunLoop loop;
    std::unique_ptr<FakeLoginManager> manager;
    SystemBus bus{loop, loop.executor(), daemon.address()};
    LinuxWorkspace workspace{bus, loop.executor()};
};

TEST_F(LinuxWorkspaceTest, who_wants_to_know_of_sleep_delays_it) {
    const auto token = workspace.onWillSleep([] {});
    EXPECT_TRUE(reaches([&] { return workspace.holdsInhibitor(); }));
    EXPECT_TRUE(manager->isHeld());
    EXPECT_EQ(manager->lastMode, "sleep/delay");
    const auto second = workspace.onWillSleep([] {});
    loop.runReady();
    EXPECT_EQ(manager->inhibitorsGiven, 1);
}

TEST_F(LinuxWorkspaceTest, sleep_waits_for_the_handlers_and_for_what_they_posted) {
    std::string order;
    const auto note = [&](const char* what) {
        order += what;
        order += manager->isHeld() ? "+ " : "- ";
    };
    const auto token = workspace.onWillSleep([&] {
        note("told");
        loop.executor().post([&] { note("posted"); });
    });
    ASSERT_TRUE(reaches([&] { return workspace.holdsInhibitor(); }));
    manager->prepareForSleep(true);
    EXPECT_TRUE(reaches([&] { return !manager->isHeld(); }));
    EXPECT_EQ(order, "told+ posted+ ");
}

TEST_F(LinuxWorkspaceTest, after_the_wake_it_is_told_and_the_next_sleep_is_delayed_again) {
    int sleeps = 0, wakes = 0;
    const auto sleep = workspace.onWillSleep([&] { ++sleeps; });
    const auto wake = workspace.onDidWake([&] { ++wakes; });
    for (int round = 1; round <= 2; ++round) {
        ASSERT_TRUE(reaches([&] { return workspace.holdsInhibitor(); }));
        manager->prepareForSleep(true);
        ASSERT_TRUE(reaches([&] { return !manager->isHeld(); }));
        manager->prepareForSleep(false);
        ASSERT_TRUE(reaches([&] { return wakes == round; }));
        EXPECT_EQ(sleeps, round);
    }
    EXPECT_TRUE(reaches([&] { return workspace.holdsInhibitor(); }));
    EXPECT_EQ(manager->inhibitorsGiven, 3);
}

TEST_F(LinuxWorkspaceTest, an_inhibitor_that_comes_during_sleep_is_given_back) {
    manager->sleepsBeforeAnswering = true;
    int sleeps = 0;
    const auto token = workspace.onWillSleep([&] { ++sleeps; });
    ASSERT_TRUE(reaches([&] { return sleeps == 1; }));
    EXPECT_TRUE(reaches([&] { return !manager->isHeld(); }));
    EXPECT_FALSE(workspace.holdsInhibitor());
    EXPECT_EQ(manager->inhibitorsGiven, 1);
}

TEST_F(LinuxWorkspaceTest, only_edges_are_told_and_nonsense_is_not) {
    int sleeps = 0, wakes = 0;
    const auto sleep = workspace.onWillSleep([&] { ++sleeps; });
    const auto wake = workspace.onDidWake([&] { ++wakes; });
    ASSERT_TRUE(reaches([&] { return workspace.holdsInhibitor(); }));
    manager->prepareForSleep(false);
    manager->emitNonsense();
    manager->prepareForSleep(true);
    manager->prepareForSleep(true);
    manager->prepareForSleep(false);
    EXPECT_TRUE(reaches([&] { return wakes == 1; }));
    EXPECT_EQ(sleeps, 1);
}

TEST_F(LinuxWorkspaceTest, a_stranger_cannot_announce_sleep) {
    int sleeps = 0;
    const auto sleep = workspace.onWillSleep([&] { ++sleeps; });
    const auto wake = workspace.onDidWake([] { FAIL(); });
    ASSERT_TRUE(reaches([&] { return workspace.holdsInhibitor(); }));
    {
        FakeService stranger(loop, daemon.address(), "", "/org/freedesktop/login1");
        stranger.emit(managerInterface, "PrepareForSleep", true);
        stranger.emit(managerInterface, "PrepareForSleep", false);
    }
    manager->prepareForSleep(true);
    EXPECT_TRUE(reaches([&] { return sleeps == 1; }));
}

TEST(LinuxWorkspace, without_a_bus_nothing_is_told_and_nothing_fails) {
    const TemporaryTree folder;
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "unix:path=" + folder.path() + "/none");
    LinuxWorkspace workspace(bus, loop.executor());
    const auto sleep = workspace.onWillSleep([] { FAIL(); });
    const auto wake = workspace.onDidWake([] { FAIL(); });
    loop.runReady();
    EXPECT_FALSE(workspace.holdsInhibitor());
}

/// A file manager that is told what to show.
struct FakeFileManager {
    FakeFileManager(RunLoop& loop, const std::string& address)
        : service(loop, address, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                  [this](sd_bus_message* message) { return answer(message); }) {}

    int answer(sd_bus_message* message) {
        if (sd_bus_message_is_method_call(message, "org.freedesktop.FileManager1", "ShowItems") <=
            0)
            return 0;
        BusMessage asked(message);
        shown = asked.texts().value_or(std::vector<std::string>());
        startup = asked.text();
        return sd_bus_reply_method_return(message, "");
    }

    std::vector<std::string> shown;
    std::optional<std::string> startup;
    FakeService service;
};

TEST_F(LinuxWorkspaceTest, a_file_is_shown_by_the_desktops_file_manager) {
    FakeFileManager files(loop, daemon.address());
    LinuxWorkspace session(bus, loop.executor(), {.session = &bus});
    session.selectFile("/opt/my program/ä%");
    EXPECT_TRUE(reaches([&] { return !files.shown.empty(); }));
    EXPECT_EQ(files.shown, std::vector<std::string>{"file:///opt/my%20program/%C3%A4%25"});
    EXPECT_EQ(files.startup, "");
}

TEST_F(LinuxWorkspaceTest, a_session_without_a_file_manager_is_logged_and_nothing_else) {
    SimulatedUnifiedLog log;
    LogSink* const before = AppLog::install(&log);
    LinuxWorkspace session(bus, loop.executor(), {.session = &bus});
    session.selectFile("/opt/x");
    EXPECT_TRUE(reaches([&] { return log.contains("No file manager shows /opt/x"); }));
    LinuxWorkspace alone(bus, loop.executor());
    alone.selectFile("/opt/y");
    EXPECT_TRUE(log.contains("No file manager shows /opt/y"));
    AppLog::install(before);
}

TEST_F(LinuxWorkspaceTest, where_no_file_manager_shows_files_the_folder_is_opened) {
    std::vector<std::string> opened;
    const auto open = [&opened](const std::string& folder) { opened.push_back(folder); };
    LinuxWorkspace session(bus, loop.executor(), {.session = &bus, .openFolder = open});
    session.selectFile("/opt/my program/x");
    EXPECT_TRUE(reaches([&] { return !opened.empty(); }));
    LinuxWorkspace alone(bus, loop.executor(), {.openFolder = open});
    alone.selectFile("/x");
    EXPECT_EQ(opened, (std::vector<std::string>{"/opt/my program/", "/"}));
    FakeFileManager files(loop, daemon.address());
    session.selectFile("/opt/y");
    EXPECT_TRUE(reaches([&] { return !files.shown.empty(); }));
    loop.runReady();
    EXPECT_EQ(opened.size(), 2U);
}

TEST(LinuxWorkspace, who_is_in_front_is_asked_of_the_display_each_time) {
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "unix:path=/nonexistent");
    std::optional<std::int32_t> front = 42;
    LinuxWorkspace workspace(bus, loop.executor(), {.frontmost = [&front] { return front; }});
    EXPECT_EQ(workspace.frontmostApplication(), 42);
    front.reset();
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
}

TEST(LinuxWorkspace, a_display_that_does_not_tell_has_nobody_in_front) {
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "unix:path=/nonexistent");
    LinuxWorkspace workspace(bus, loop.executor());
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
}

TEST(LinuxWorkspace, opens_the_system_monitor_where_the_desktop_has_one) {
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "unix:path=/nonexistent");
    LinuxWorkspace bare(bus, loop.executor());
    EXPECT_FALSE(bare.hasSystemMonitor());
    bare.openSystemMonitor();

    const TemporaryTree tree;
    const LinuxRoot root(tree.path());
    std::vector<std::string> started;
    LinuxWorkspace workspace(bus, loop.executor(),
                             {.monitor = SystemMonitor(
                                  root, [](std::string_view) { return std::nullopt; },
                                  [&started](const auto& command) { started = command; })});
    EXPECT_FALSE(workspace.hasSystemMonitor());
    workspace.openSystemMonitor();
    EXPECT_TRUE(started.empty());
    tree.write("/usr/bin/gnome-system-monitor", "");
    tree.write("/usr/share/applications/org.gnome.SystemMonitor.desktop",
               "[Desktop Entry]\nExec=gnome-system-monitor %U\n");
    EXPECT_TRUE(workspace.hasSystemMonitor());
    workspace.openSystemMonitor();
    EXPECT_EQ(started, std::vector<std::string>{"gnome-system-monitor"});
}

}  // namespace
}  // namespace vtx::test
