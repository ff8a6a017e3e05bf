// SPDX-License-Identifier: MIT
// The page of the processes, worked by the keyboard alone and read by assistive software.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>
#include <regex>

#include "support/PageTest.h"

namespace vtx::e2e {
namespace {

namespace fs = std::filesystem;

/// A process of the test's own, by a name that no other has.
constexpr auto sleeper = "vantrixsleeper";

class ProcessPageE2E : public PageTest {
protected:
    void openProcesses() {
        const fs::path program = fs::path(desktop.folder().sub("bin")) / sleeper;
        fs::copy_file("/bin/sleep", program);
        sleeping = desktop.start({program.string(), "300"});
        ASSERT_NO_FATAL_FAILURE(startVantrix());
        ASSERT_NO_FATAL_FAILURE(open());
        ASSERT_NO_FATAL_FAILURE(choose("Processes"));
    }
    [[nodiscard]] int niceOfSleeper() const {
        return ::getpriority(PRIO_PROCESS, static_cast<id_t>(sleeping->pid()));
    }
    /// Moves by the key to the element of that name.
    [[nodiscard]] std::optional<Accessible> goTo(const std::string& name, std::uint32_t key) {
        constexpr int farthest = 40;
        for (int step = 0; step < farthest; ++step)
            if (auto reached = goBy(key); reached && reached->name() == name) return reached;
        return std::nullopt;
    }

    std::unique_ptr<ChildProcess> sleeping;
};

TEST_F(ProcessPageE2E, a_process_is_found_told_of_and_lowered_by_the_keyboard_alone) {
    ASSERT_NO_FATAL_FAILURE(openProcesses());
    ASSERT_TRUE(goTo("Filter", key::tab));
    user().type("vantrixs");
    ASSERT_TRUE(eventually([this] {
        const auto rows = every("list item");
        return rows.size() == 1 && rows[0].name() == sleeper;
    })) << popover()->drawing();
    const auto row = goBy(key::down);
    ASSERT_TRUE(row);
    EXPECT_EQ(row->name(), sleeper);
    const std::regex figures("CPU .+, Mem .+, PID " + std::to_string(sleeping->pid()));
    EXPECT_TRUE(std::regex_match(row->description(), figures)) << row->description();

    user().press(key::enter);
    ASSERT_TRUE(eventually([this] { return isMenuOpen(); }));
    ASSERT_TRUE(goTo("Lower priority", key::down));
    user().press(key::enter);
    const auto asked = [this] {
        return popover()->findNamed(std::string("Set \"") + sleeper + "\" to Lower priority");
    };
    ASSERT_TRUE(eventually([&] { return asked().has_value(); })) << popover()->drawing();
    EXPECT_EQ(niceOfSleeper(), 0);
    user().press(key::enter);
    EXPECT_TRUE(eventually([this] { return niceOfSleeper() == 5; }));
    EXPECT_TRUE(eventually([&] { return row->description().ends_with("nice 5"); }))
        << row->description();
}

TEST_F(ProcessPageE2E, escape_leads_out_of_menu_and_question_and_changes_nothing) {
    ASSERT_NO_FATAL_FAILURE(openProcesses());
    ASSERT_TRUE(goTo("Filter", key::tab));
    user().type("vantrixs");
    ASSERT_TRUE(eventually([this] { return every("list item").size() == 1; }));
    ASSERT_TRUE(goBy(key::down));
    user().press(key::enter);
    ASSERT_TRUE(eventually([this] { return isMenuOpen(); }));
    user().press(key::escape);
    ASSERT_TRUE(eventually([this] { return !isMenuOpen(); }));
    user().press(key::enter);
    ASSERT_TRUE(eventually([this] { return isMenuOpen(); })) << "the keyboard left the row";
    ASSERT_TRUE(goTo("Lower priority", key::down));
    user().press(key::enter);
    ASSERT_TRUE(eventually([this] { return popover()->findRole("dialog").has_value(); }));
    user().press(key::escape);
    ASSERT_TRUE(eventually([this] { return !popover()->findNamed("Cancel"); }));
    EXPECT_TRUE(isPopoverOpen());
    EXPECT_EQ(niceOfSleeper(), 0);
    // The same key once more empties the field, and only then closes the popover.
}

}  // namespace
}  // namespace vtx::e2e
