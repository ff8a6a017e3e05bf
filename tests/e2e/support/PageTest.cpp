// SPDX-License-Identifier: MIT
#include "support/PageTest.h"

#include <algorithm>

namespace vtx::e2e {
namespace {

/// The strip grows once when the first readings are there.
constexpr Span steady{150};
/// Longer than it waits for the keyboard to come back.
constexpr Span settled{400};
/// For which nothing more is told of the keyboard: it has come to rest.
constexpr Span quiet{60};
/// What a key that leads nowhere is given.
constexpr Span untilNowhere{5000};
constexpr unsigned digits = 9;
/// More stops than any page has.
constexpr std::size_t mostStops = 250;

void collect(const Accessible& from, std::vector<Accessible>& into) {
    if (!from.isShowing()) return;
    into.push_back(from);
    for (const Accessible& child : from.children()) collect(child, into);
}

}  // namespace

std::string wordsOf(const Accessible& element) {
    return element.role() + " \"" + element.name() + "\"";
}

void PageTest::open() {
    ASSERT_TRUE(eventually([this] {
        const Place before = stripPlace();
        watchFor(steady, [] {});
        return before.width > 0 && before == stripPlace();
    })) << "the strip does not come to rest";
    const bool isSimulated = applicationName != "vantrix";
    const std::string program = isSimulated ? VANTRIX_SIMULATED_PROGRAM : VANTRIX_PROGRAM;
    const auto hasKeyboard = [this] {
        const auto shown = popover();
        return shown && display().place(display().activeWindow()) == shown->place();
    };
    ASSERT_TRUE(eventually([&] {
        if (!isPopoverOpen()) (void)desktop.start({program})->exitStatus();
        if (!eventually(hasKeyboard, patience / 4)) return false;
        bool stays = true;
        watchFor(settled, [&] { stays = stays && hasKeyboard(); });
        return stays;
    })) << "it is not open with the keyboard";
}

std::vector<std::string> PageTest::sections() {
    std::vector<std::string> names;
    for (const Accessible& tab : every("page tab")) names.push_back(tab.name());
    return names;
}

void PageTest::choose(const std::string& section) {
    const auto names = sections();
    const auto at = std::ranges::find(names, section);
    ASSERT_NE(at, names.end()) << section << " is not offered";
    const auto number = static_cast<unsigned>(at - names.begin()) + 1;
    user().press(key::digit(std::min(number, digits)));
    for (unsigned place = digits; place < number; ++place) user().press(key::right);
    if (number > digits) user().press(key::space);
    ASSERT_TRUE(eventually([this, &section] {
        const auto tab = popover()->findNamed(section);
        return tab && tab->isSelected();
    })) << section
        << " was not chosen";
}

std::vector<Accessible> PageTest::everything() {
    std::vector<Accessible> found;
    if (const auto window = popover()) collect(*window, found);
    return found;
}

std::vector<Accessible> PageTest::every(const std::string& role) {
    std::vector<Accessible> found = everything();
    std::erase_if(found, [&role](const Accessible& one) { return one.role() != role; });
    return found;
}

std::string PageTest::said(const std::string& name, const std::string& role) {
    const auto found = popover()->find(
        [&](const Accessible& one) { return one.role() == role && one.name() == name; });
    return found ? found->description() : "";
}

std::optional<Accessible> PageTest::goBy(std::uint32_t key) {
    constexpr auto kind = "StateChanged:focused";
    AccessibleTree& tree = desktop.accessibility();
    (void)tree.newEvents(kind);
    user().press(key);
    std::optional<Accessible> reached;
    const auto hear = [&] {
        bool isTold = false;
        for (const AccessibleEvent& event : tree.newEvents(kind)) {
            if (event.value == 0) continue;
            reached = event.source;
            isTold = true;
        }
        return isTold;
    };
    if (!eventually(hear, untilNowhere)) return std::nullopt;
    while (eventually(hear, quiet)) continue;
    return reached;
}

std::vector<Accessible> PageTest::wayOfTab(const std::function<void(const Accessible&)>& meet) {
    std::vector<Accessible> way;
    while (way.size() < mostStops) {
        auto reached = goBy(key::tab);
        if (!reached || reached->role() == "page tab" || reached->role() == "page tab list") break;
        if (meet) meet(*reached);
        way.push_back(*std::move(reached));
    }
    return way;
}

}  // namespace vtx::e2e
