// SPDX-License-Identifier: MIT
// Who is in front, as a real window manager tells it.
#include "ui/shell/linux/X11FrontmostProcess.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <fstream>
#include <string>

#include "support/ClientWindow.h"
#include "support/SectionDesktopTest.h"
#include "ui/shell/linux/X11Connection.h"

namespace vtx::e2e {
namespace {

using namespace std::chrono_literals;

std::string thisMachine() {
    std::array<char, 256> name{};
    EXPECT_EQ(::gethostname(name.data(), name.size() - 1), 0);
    return name.data();
}

struct FrontmostProcess : testing::Test {
    Desktop desktop;
    X11Connection x11{desktop.display().connection()};

    [[nodiscard]] std::optional<std::int32_t> frontmost() { return x11FrontmostProcess(x11); }
};

TEST_F(FrontmostProcess, is_nobody_while_no_window_is_there) {
    EXPECT_EQ(frontmost(), std::nullopt);
}

TEST_F(FrontmostProcess, is_the_one_whose_window_is_active) {
    const ClientWindow one(desktop.display());
    one.belongTo(4242);
    one.runOn(thisMachine());
    ASSERT_TRUE(one.comesToFront());
    EXPECT_EQ(frontmost(), 4242);
    const ClientWindow other(desktop.display());
    other.belongTo(77);
    ASSERT_TRUE(other.comesToFront());
    EXPECT_EQ(frontmost(), 77);
}

TEST_F(FrontmostProcess, is_nobody_where_the_window_does_not_say_whose_it_is) {
    const ClientWindow nameless(desktop.display());
    ASSERT_TRUE(nameless.comesToFront());
    EXPECT_EQ(frontmost(), std::nullopt);
    for (const std::uint32_t impossible : {0U, 0x8000'0000U}) {
        nameless.belongTo(impossible);
        EXPECT_EQ(frontmost(), std::nullopt) << impossible;
    }
}

TEST_F(FrontmostProcess, is_nobody_here_where_the_program_runs_on_another_machine) {
    const ClientWindow remote(desktop.display());
    remote.belongTo(4242);
    remote.runOn(thisMachine() + "-not");
    ASSERT_TRUE(remote.comesToFront());
    EXPECT_EQ(frontmost(), std::nullopt);
}

TEST_F(FrontmostProcess, is_nobody_once_the_window_has_vanished) {
    xcb_window_t gone = 0;
    {
        const ClientWindow window(desktop.display());
        window.belongTo(4242);
        ASSERT_TRUE(window.comesToFront());
        gone = window.id();
    }
    EXPECT_EQ(frontmost(), std::nullopt);
    // As a window manager that has yet to hear of its end leaves it.
    x11.setNumbers(x11.root(), "_NET_ACTIVE_WINDOW", std::array{gone});
    EXPECT_EQ(frontmost(), std::nullopt);
}

class BackgroundHogE2E : public SectionDesktopTest {
protected:
    /// A program of that name, which takes all the processor that it gets.
    [[nodiscard]] std::unique_ptr<ChildProcess> startBusy(const std::string& name) {
        const auto program = desktop.folder().path() / name;
        std::ofstream(program) << "#!/bin/sh\nwhile :; do :; done\n";
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        return desktop.start({program.string()});
    }
    /// The names that the panel lists.
    [[nodiscard]] std::vector<std::string> hogs() {
        std::vector<std::string> names;
        const auto open = popover();
        const auto title = open ? open->findNamed("Background hogs") : std::nullopt;
        const auto panel = title ? title->parent() : std::nullopt;
        if (!panel) return names;
        for (const Accessible& one : panel->children())
            if (one.role() == "list item") names.push_back(one.name());
        return names;
    }
};

TEST_F(BackgroundHogE2E, what_is_in_front_is_none_however_busy_it_is) {
    std::ofstream(desktop.folder().sub("config/vantrix") + "/defaults.json")
        << R"({"displayPreferences.v3": "{\"hogDetectorEnabled\":true,)"
        << R"(\"hogCPUThreshold\":0.05,\"hogMinDurationSeconds\":1}"})";
    const auto inFront = startBusy("busy-in-front");
    const auto behind = startBusy("busy-behind");
    const ClientWindow window(display());
    window.belongTo(static_cast<std::uint32_t>(inFront->pid()));
    ASSERT_TRUE(window.comesToFront());
    ASSERT_NO_FATAL_FAILURE(startVantrix());
    ASSERT_EQ(display().activeWindow(), window.id());
    constexpr auto fourSamples = 16s;
    watchFor(fourSamples, [] {});
    // From now on it is idle, for the popover comes to the front.
    inFront->send(SIGSTOP);
    ASSERT_NO_FATAL_FAILURE(openPopover());
    ASSERT_NO_FATAL_FAILURE(chooseSection("Processes"));
    ASSERT_TRUE(eventually([this] { return !hogs().empty(); })) << drawing();
    EXPECT_THAT(hogs(), testing::Contains("busy-behind"));
    EXPECT_THAT(hogs(), testing::Not(testing::Contains("busy-in-front")));
}

}  // namespace
}  // namespace vtx::e2e
