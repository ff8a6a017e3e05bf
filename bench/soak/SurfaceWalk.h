// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "ProcessWindows.h"

namespace vtx::bench {

/// Opens, uses and closes the surfaces of a resident program at random, by clicks and keys that the
/// X server makes. The same seed does the same in the same order. Needs the display for itself.
class SurfaceWalk {
public:
    using Pause = std::function<void(std::chrono::milliseconds)>;

    /// All waiting is left to `pause`. Throws `std::runtime_error` where no display answers.
    SurfaceWalk(pid_t process, std::uint64_t seed, Pause pause);

    /// Uses one surface; the dashboard and the mini widget may stay open. What the display lost, as
    /// a key before a menu had the keyboard, is done again; throws `std::runtime_error`, naming the
    /// step, where it does not come about at all.
    void step();
    /// Closes all but the strip.
    void closeAll();

    /// A digest of the strip's picture; absent while it cannot be seen.
    [[nodiscard]] std::optional<std::size_t> stripPicture();
    /// Whether nothing but the strip is shown.
    [[nodiscard]] bool isAllClosed();

    [[nodiscard]] std::optional<pid_t> server() const { return display_.server(); }

    [[nodiscard]] std::size_t steps() const { return steps_; }
    /// How often something had to be done again.
    [[nodiscard]] std::size_t repeats() const { return repeats_; }
    /// How often each was used.
    [[nodiscard]] const std::map<std::string, std::size_t>& uses() const { return uses_; }

private:
    using Windows = ProcessWindows::Windows;
    struct Act;

    void usePopover();
    void useSettings();
    void useDashboard();
    void toggleWidget();
    void useAbout();
    void useMenu();
    void refreshNow();

    [[nodiscard]] std::optional<xcb_window_t> widget();
    /// Closes, as far as that is seen at once, all but the strip.
    void tryToCloseAll();
    /// Chooses the entry of that number, from 1 on, of the strip's menu.
    void choose(int entry);
    xcb_window_t openMenu();
    /// Looks at some sections of a popover or a dashboard, which has the keyboard.
    void visitSections(xcb_window_t window);
    void wander(xcb_window_t window);
    void closePopover(xcb_window_t window);
    /// The window that came besides those. Throws where none does.
    xcb_window_t awaitNew(const Windows& before, std::string_view what);
    void awaitGone(xcb_window_t window, std::string_view what);
    [[nodiscard]] bool happens(const std::function<bool()>& condition);
    [[nodiscard]] bool isShown(xcb_window_t window);

    [[nodiscard]] std::uint64_t upTo(std::uint64_t most);
    [[nodiscard]] bool oneIn(std::uint64_t count) { return upTo(count - 1) == 0; }
    void lookAtIt();

    ProcessWindows display_;
    std::mt19937_64 random_;
    Pause pause_;
    std::optional<xcb_window_t> dashboard_;
    std::size_t steps_ = 0;
    std::size_t repeats_ = 0;
    std::map<std::string, std::size_t> uses_;
};

}  // namespace vtx::bench
