// SPDX-License-Identifier: MIT
#include "support/DesktopTest.h"

#include <charconv>

namespace vtx::e2e {
namespace {

constexpr std::string_view spokenBefore = "CPU ", spokenAfter = " percent";

}  // namespace

void DesktopTest::TearDown() {
    if (!HasFailure()) return;
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test->test_suite_name()) + "." + test->name();
    const auto file = std::filesystem::path(VANTRIX_PICTURES) / (name + ".png");
    if (display().savePicture(file)) std::printf("The screen: %s\n", file.c_str());
    if (vantrix) std::printf("The program said:\n%s", vantrix->errors().c_str());
    std::printf("The desktop said:\n%s", desktop.complaints().c_str());
    for (const Accessible& one : desktop.accessibility().applications())
        std::printf("On the accessibility bus:\n%s", one.drawing().c_str());
}

void DesktopTest::start(std::vector<std::string> command, const std::string& name) {
    applicationName = name;
    vantrix = desktop.start(std::move(command));
    ASSERT_TRUE(eventually([this] { return spokenCpu().has_value(); }))
        << "the strip said no percentage";
}

std::vector<Accessible> DesktopTest::windows() {
    const auto application = desktop.application(applicationName);
    return application ? application->children() : std::vector<Accessible>();
}

std::optional<Accessible> DesktopTest::strip() {
    for (const Accessible& window : windows()) {
        if (window.role() == "dialog") continue;
        if (auto button = window.findRole("push button")) return button;
    }
    return std::nullopt;
}

std::optional<int> percentIn(std::string_view text) {
    if (!text.starts_with(spokenBefore)) return std::nullopt;
    text.remove_prefix(spokenBefore.size());
    int percent = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, percent);
    const bool isSaid =
        error == std::errc() && std::string_view(rest, end).starts_with(spokenAfter);
    return isSaid ? std::optional(percent) : std::nullopt;
}

std::optional<int> DesktopTest::spokenCpu() {
    const auto found = strip();
    return found ? percentIn(found->name()) : std::nullopt;
}

Place DesktopTest::stripPlace() { return display().place(display().clientOfType("DOCK")); }

std::optional<Accessible> DesktopTest::popover() {
    const auto isPopover = [](const Accessible& one) {
        return one.isShowing() && one.findNamed("Als Fenster öffnen").has_value();
    };
    for (const Accessible& window : windows())
        if (isPopover(window)) return window;
    return std::nullopt;
}

std::optional<Accessible> DesktopTest::windowNamed(const std::string& name) {
    for (const Accessible& window : windows())
        if (window.name() == name && window.isShowing()) return window;
    return std::nullopt;
}

std::optional<Accessible> DesktopTest::elementOf(xcb_window_t wanted) {
    for (const Accessible& window : windows())
        if (window.isShowing() && window.place() == display().place(wanted)) return window;
    return std::nullopt;
}

std::optional<Accessible> DesktopTest::openedMenu() {
    if (!eventually([this] { return isMenuOpen(); })) return std::nullopt;
    (void)desktop.accessibility().newEvents("StateChanged:focused");
    std::optional<Accessible> entry;
    const auto focused = [&] {
        for (const auto& event : desktop.accessibility().newEvents("StateChanged:focused"))
            if (event.source.role() == "menu item") entry = event.source;
        return entry.has_value();
    };
    // Again if need be: the menu shows a moment before it has the keyboard.
    constexpr Span untilAgain{700};
    (void)eventually([&] {
        user().press(key::down);
        return eventually(focused, untilAgain);
    });
    return entry ? entry->parent() : std::nullopt;
}

void DesktopTest::choose(const std::string& name) {
    user().click(stripPlace(), UserInput::Button::right);
    const auto menu = openedMenu();
    ASSERT_TRUE(menu) << "no menu";
    const auto entry = menu->findNamed(name);
    ASSERT_TRUE(entry) << menu->drawing();
    user().click(entry->place());
}

Place DesktopTest::emptyPlace() {
    const Place screen = display().screen();
    return {screen.width / 10, screen.height - screen.height / 10, 0, 0};
}

}  // namespace vtx::e2e
