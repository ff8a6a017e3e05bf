// SPDX-License-Identifier: MIT
#include "support/SectionDesktopTest.h"

#include <algorithm>

namespace vtx::e2e {

void SectionDesktopTest::openPopover() {
    constexpr Span steady{150};
    // It grows once when the first readings are there.
    ASSERT_TRUE(eventually([this, steady] {
        const Place before = stripPlace();
        watchFor(steady, [] {});
        return before.width > 0 && before == stripPlace();
    })) << "the strip does not come to rest";
    user().click(stripPlace());
    ASSERT_TRUE(eventually([this] { return isPopoverOpen(); })) << "it did not open";
    ASSERT_TRUE(eventually([this] {
        const xcb_window_t window = display().clientOfType("UTILITY");
        return window != 0 && display().activeWindow() == window;
    })) << "it has no keyboard";
}

std::vector<Accessible> SectionDesktopTest::every(const std::string& role) {
    std::vector<Accessible> found;
    const auto open = popover();
    if (!open) return found;
    (void)open->find([&](const Accessible& one) {
        if (one.role() == role) found.push_back(one);
        return false;
    });
    return found;
}

std::string SectionDesktopTest::drawing() {
    const auto open = popover();
    return open ? open->drawing() : "the popover is closed";
}

std::vector<std::string> SectionDesktopTest::sections() {
    std::vector<std::string> names;
    for (const Accessible& tab : every("page tab")) names.push_back(tab.name());
    return names;
}

void SectionDesktopTest::chooseSection(const std::string& section) {
    const auto names = sections();
    const auto at = std::ranges::find(names, section);
    ASSERT_NE(at, names.end()) << section << " is not offered";
    user().press(key::digit(static_cast<unsigned>(at - names.begin()) + 1));
    ASSERT_TRUE(eventually([this, &section] {
        const auto open = popover();
        const auto tab = open ? open->findNamed(section) : std::nullopt;
        return tab && tab->isSelected();
    })) << section
        << " was not chosen";
}

std::optional<Accessible> SectionDesktopTest::tabTo(
    const std::function<bool(const Accessible&)>& wanted) {
    // A busy machine takes its time: what comes after the next press would be taken for its answer.
    constexpr Span aStep{8000}, allSteps{60'000};
    const char* const focused = "StateChanged:focused";
    (void)desktop.accessibility().newEvents(focused);
    std::optional<Accessible> there;
    const auto hasMoved = [&] {
        for (const auto& event : desktop.accessibility().newEvents(focused)) there = event.source;
        return there.has_value();
    };
    const auto isThere = [&] {
        there.reset();
        user().press(key::tab);
        return eventually(hasMoved, aStep) && wanted(*there);
    };
    return eventually(isThere, allSteps) ? there : std::nullopt;
}

}  // namespace vtx::e2e
