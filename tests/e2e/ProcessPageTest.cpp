// SPDX-License-Identifier: MIT
// The page of processes, from what is typed there to what the kernel then says of the process.
#include <sys/resource.h>

#include <cerrno>
#include <filesystem>

#include "support/SectionDesktopTest.h"

namespace vtx::e2e {
namespace {

constexpr auto sleeperName = "sleeper";
constexpr auto toLower = "Set \"sleeper\" to Lower priority";

class ProcessPageE2E : public SectionDesktopTest {
protected:
    void SetUp() override {
        // A program of the user's own, which no other process is called like.
        const auto program = desktop.folder().path() / sleeperName;
        std::filesystem::copy_file("/bin/sleep", program);
        sleeper = desktop.start({program.string(), "600"});
        ASSERT_NO_FATAL_FAILURE(startVantrix());
        ASSERT_NO_FATAL_FAILURE(openPopover());
        ASSERT_NO_FATAL_FAILURE(chooseSection("Processes"));
        ASSERT_TRUE(tabTo([](const Accessible& one) { return one.name() == "Filter"; }))
            << drawing();
        user().type(sleeperName);
        ASSERT_TRUE(eventually([this] {
            const auto rows = every("list item");
            return rows.size() == 1 && rows.front().name() == sleeperName;
        })) << drawing();
    }
    [[nodiscard]] Accessible row() { return every("list item").at(0); }
    /// Chooses an entry of the row's menu with the pointer.
    void choose(const std::string& name) {
        user().click(row().place(), UserInput::Button::right);
        const auto menu = openedMenu();
        ASSERT_TRUE(menu);
        const auto entry = menu->findNamed(name);
        ASSERT_TRUE(entry) << menu->drawing();
        user().click(entry->place());
    }
    /// Whether the question about that change is there.
    [[nodiscard]] bool isAsked(const std::string& question) {
        const auto open = popover();
        return open && open->findNamed(question).has_value();
    }
    [[nodiscard]] bool comesToAsk(const std::string& question) {
        return eventually([&] { return isAsked(question); });
    }
    [[nodiscard]] bool becomes(int nice) {
        return eventually([&] {
            errno = 0;
            return ::getpriority(PRIO_PROCESS, static_cast<id_t>(sleeper->pid())) == nice;
        });
    }
    [[nodiscard]] bool isMarked(const std::string& mark) {
        return eventually([&] {
            const auto rows = every("list item");
            return !rows.empty() && rows[0].description().find(mark) != std::string::npos;
        });
    }

    std::unique_ptr<ChildProcess> sleeper;
};

TEST_F(ProcessPageE2E, a_priority_is_lowered_by_the_keyboard_alone) {
    user().press(key::down);
    ASSERT_TRUE(eventually([this] { return row().isFocused(); })) << drawing();
    user().press(key::enter);
    const auto menu = openedMenu();
    ASSERT_TRUE(menu);
    constexpr int mostEntries = 8;
    const auto isLit = [&] {
        const auto entry = menu->findNamed("Lower priority");
        return entry && entry->isFocused();
    };
    for (int i = 0; i < mostEntries && !eventually(isLit, Span(300)); ++i) user().press(key::down);
    ASSERT_TRUE(isLit()) << menu->drawing();
    user().press(key::enter);
    ASSERT_TRUE(comesToAsk(toLower)) << drawing();
    EXPECT_TRUE(becomes(::getpriority(PRIO_PROCESS, 0))) << "nothing was confirmed yet";
    user().press(key::enter);
    EXPECT_TRUE(becomes(5));
    EXPECT_TRUE(isMarked("nice 5")) << drawing();
}

TEST_F(ProcessPageE2E, a_priority_is_lowered_by_the_pointer_alone) {
    ASSERT_NO_FATAL_FAILURE(choose("Lowest (prefer E-cores)"));
    ASSERT_TRUE(comesToAsk("Set \"sleeper\" to Lowest priority (prefer E-cores)"));
    user().click(popover()->findNamed("Apply")->place());
    EXPECT_TRUE(becomes(10));
    EXPECT_TRUE(isMarked("nice 10")) << drawing();
}

TEST_F(ProcessPageE2E, escape_takes_back_one_thing_after_the_other) {
    ASSERT_NO_FATAL_FAILURE(choose("Lower priority"));
    ASSERT_TRUE(comesToAsk(toLower));
    user().press(key::escape);
    ASSERT_TRUE(eventually([this] { return !isAsked(toLower); }));
    EXPECT_TRUE(isPopoverOpen()) << "only the question was to go";
    EXPECT_TRUE(becomes(::getpriority(PRIO_PROCESS, 0)));
    user().press(key::escape);
    EXPECT_TRUE(eventually([this] { return !isPopoverOpen(); }));
}

}  // namespace
}  // namespace vtx::e2e
