// SPDX-License-Identifier: MIT
#include "SurfaceWalk.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace vtx::bench {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto patience = 10s;
constexpr auto glance = 20ms;
/// A window shows a moment before it has the keyboard.
constexpr auto untilKeyboard = 500ms;
constexpr auto betweenKeys = 25ms;
/// After what leaves no mark that could be waited for.
constexpr auto aftermath = 200ms;
constexpr int attempts = 6;

/// In pixels; no other surface has it.
constexpr int widgetWidth = 220;

constexpr int entryAbout = 1;
constexpr int entrySettings = 2;
constexpr int entryDashboard = 3;
constexpr int entryRefresh = 4;
constexpr int entryWidget = 5;

}  // namespace

/// What a step may be, and how often beside the others.
struct SurfaceWalk::Act {
    std::string_view name;
    std::uint64_t weight;
    void (SurfaceWalk::*perform)();
};

SurfaceWalk::SurfaceWalk(pid_t process, std::uint64_t seed, Pause pause)
    : display_(process), random_(seed), pause_(std::move(pause)) {}

std::uint64_t SurfaceWalk::upTo(std::uint64_t most) { return random_() % (most + 1); }

void SurfaceWalk::lookAtIt() {
    constexpr std::uint64_t longest = 2300;
    pause_(200ms + std::chrono::milliseconds(upTo(longest)));
}

void SurfaceWalk::step() {
    static constexpr std::array acts{Act{"popover", 8, &SurfaceWalk::usePopover},
                                     Act{"dashboard", 4, &SurfaceWalk::useDashboard},
                                     Act{"mini widget", 3, &SurfaceWalk::toggleWidget},
                                     Act{"settings", 2, &SurfaceWalk::useSettings},
                                     Act{"menu", 2, &SurfaceWalk::useMenu},
                                     Act{"about", 1, &SurfaceWalk::useAbout},
                                     Act{"refresh", 1, &SurfaceWalk::refreshNow}};
    std::uint64_t total = 0;
    for (const Act& act : acts) total += act.weight;
    std::uint64_t drawn = upTo(total - 1);
    const Act* chosen = acts.data();
    while (drawn >= chosen->weight) drawn -= (chosen++)->weight;
    ++steps_;
    ++uses_[std::string(chosen->name)];
    for (int attempt = 1;; ++attempt) {
        try {
            (this->*chosen->perform)();
            display_.pointAway();
            return;
        } catch (const std::runtime_error& error) {
            if (attempt == attempts) {
                throw std::runtime_error(
                    fmt::format("step {}, {}: {}", steps_, chosen->name, error.what()));
            }
            ++repeats_;
            closeAll();
        }
    }
}

void SurfaceWalk::closeAll() {
    for (int attempt = 0; attempt < attempts && !isAllClosed(); ++attempt) {
        try {
            tryToCloseAll();
        } catch (const std::runtime_error&) {
            ++repeats_;
        }
    }
    if (!isAllClosed()) throw std::runtime_error("a surface cannot be closed");
    dashboard_.reset();
    display_.pointAway();
}

void SurfaceWalk::tryToCloseAll() {
    display_.press(key::escape);
    display_.pointAway();
    const auto strip = display_.strip();
    const auto kept = widget();
    for (const auto window : display_.surfaces()) {
        if (window != strip && window != kept) display_.requestClose(window);
    }
    (void)happens([this, &kept] { return display_.surfaces().size() <= (kept ? 2U : 1U); });
    if (kept) toggleWidget();
}

std::optional<std::size_t> SurfaceWalk::stripPicture() {
    const auto strip = display_.strip();
    return strip ? display_.picture(*strip) : std::nullopt;
}

bool SurfaceWalk::isAllClosed() { return display_.surfaces().size() <= 1; }

void SurfaceWalk::usePopover() {
    const auto strip = display_.strip();
    if (!strip) throw std::runtime_error("there is no strip");
    const auto before = display_.surfaces();
    display_.click(*strip, button::left);
    const auto popover = awaitNew(before, "the popover");
    pause_(untilKeyboard);
    visitSections(popover);
    closePopover(popover);
}

void SurfaceWalk::useSettings() {
    const auto before = display_.surfaces();
    choose(entrySettings);
    const auto popover = awaitNew(before, "the popover");
    pause_(untilKeyboard);
    // The last section stands before the button that makes a window of it.
    display_.press(key::end);
    display_.press(key::left);
    display_.press(key::enter);
    lookAtIt();
    wander(popover);
    closePopover(popover);
}

void SurfaceWalk::useDashboard() {
    const auto before = display_.surfaces();
    choose(entryDashboard);
    if (dashboard_ && isShown(*dashboard_)) {
        pause_(aftermath);
    } else {
        dashboard_ = awaitNew(before, "the dashboard");
    }
    pause_(untilKeyboard);
    visitSections(*dashboard_);
    if (oneIn(3)) return;
    display_.requestClose(*dashboard_);
    awaitGone(*dashboard_, "the dashboard");
    dashboard_.reset();
}

std::optional<xcb_window_t> SurfaceWalk::widget() {
    for (const auto window : display_.surfaces()) {
        if (display_.width(window) == widgetWidth) return window;
    }
    return std::nullopt;
}

void SurfaceWalk::toggleWidget() {
    const bool wasShown = widget().has_value();
    choose(entryWidget);
    if (!happens([&] { return widget().has_value() != wasShown; })) {
        throw std::runtime_error(wasShown ? "the mini widget did not close"
                                          : "the mini widget did not open");
    }
    if (!wasShown) lookAtIt();
}

void SurfaceWalk::useAbout() {
    const auto before = display_.surfaces();
    choose(entryAbout);
    const auto panel = awaitNew(before, "the panel about the program");
    lookAtIt();
    if (oneIn(2)) {
        display_.requestClose(panel);
    } else {
        display_.press(key::escape);
    }
    awaitGone(panel, "the panel about the program");
}

void SurfaceWalk::useMenu() {
    const auto menu = openMenu();
    lookAtIt();
    display_.press(key::escape);
    awaitGone(menu, "the menu");
}

void SurfaceWalk::refreshNow() {
    choose(entryRefresh);
    pause_(aftermath);
}

xcb_window_t SurfaceWalk::openMenu() {
    const auto strip = display_.strip();
    if (!strip) throw std::runtime_error("there is no strip");
    const auto before = display_.surfaces();
    display_.click(*strip, button::right);
    const auto menu = awaitNew(before, "the menu");
    pause_(untilKeyboard);
    return menu;
}

void SurfaceWalk::choose(int entry) {
    const auto menu = openMenu();
    for (int step = 0; step < entry; ++step) {
        display_.press(key::down);
        pause_(betweenKeys);
    }
    display_.press(key::enter);
    awaitGone(menu, "the menu");
}

void SurfaceWalk::visitSections(xcb_window_t window) {
    constexpr std::uint64_t most = 5;
    constexpr unsigned digits = 9;
    const auto visits = 1 + upTo(most - 1);
    for (std::uint64_t i = 0; i < visits; ++i) {
        // Out of a field for text, wherever that stands in the order of the controls: it would take
        // the digit as text.
        display_.press(key::tab);
        display_.press(key::tab);
        display_.press(key::digit(1 + static_cast<unsigned>(upTo(digits - 1))));
        lookAtIt();
        if (oneIn(3)) wander(window);
    }
}

void SurfaceWalk::wander(xcb_window_t window) {
    constexpr std::uint64_t finest = 100;
    const auto part = [this] { return static_cast<double>(upTo(finest)) / (finest + 1); };
    constexpr int places = 4;
    for (int i = 0; i < places; ++i) {
        display_.pointAt(window, part(), part());
        if (oneIn(2)) {
            for (auto turns = upTo(4); turns > 0; --turns) {
                display_.clickHere(oneIn(3) ? button::wheelUp : button::wheelDown);
            }
        }
        pause_(aftermath);
    }
}

void SurfaceWalk::closePopover(xcb_window_t window) {
    switch (upTo(2)) {
        case 0:
            display_.press(key::escape);
            // A field for text is emptied by the first one.
            pause_(aftermath);
            if (isShown(window)) display_.press(key::escape);
            break;
        case 1:
            display_.pointAway();
            display_.clickHere(button::left);
            break;
        default:
            if (const auto strip = display_.strip()) display_.click(*strip, button::left);
    }
    awaitGone(window, "the popover");
}

xcb_window_t SurfaceWalk::awaitNew(const Windows& before, std::string_view what) {
    std::optional<xcb_window_t> found;
    const auto came = happens([&] {
        for (const auto window : display_.surfaces()) {
            if (!before.contains(window)) found = window;
        }
        return found.has_value();
    });
    if (!came) throw std::runtime_error(fmt::format("{} did not open", what));
    return *found;
}

void SurfaceWalk::awaitGone(xcb_window_t window, std::string_view what) {
    if (!happens([&] { return !isShown(window); })) {
        throw std::runtime_error(fmt::format("{} did not close", what));
    }
}

bool SurfaceWalk::happens(const std::function<bool()>& condition) {
    const auto limit = Clock::now() + patience;
    while (!condition()) {
        if (Clock::now() > limit) return false;
        pause_(glance);
    }
    return true;
}

bool SurfaceWalk::isShown(xcb_window_t window) { return display_.surfaces().contains(window); }

}  // namespace vtx::bench
