// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/DesktopTest.h"

namespace vtx::e2e {

/// A test in the open popover, which it goes through by the keyboard and by what assistive software
/// is told.
class PageTest : public DesktopTest {
protected:
    /// Opens it by a second start, as who has no mouse does, once the strip has come to rest; the
    /// keyboard is on its bar then.
    void open();

    /// What the bar offers, in its order.
    [[nodiscard]] std::vector<std::string> sections();
    /// By the digit of its place on the bar, or by the arrows beyond the ninth.
    void choose(const std::string& section);

    /// Every element that shows, from the popover's window on.
    [[nodiscard]] std::vector<Accessible> everything();
    [[nodiscard]] std::vector<Accessible> every(const std::string& role);
    /// What is said of the element of that name; empty while there is none.
    [[nodiscard]] std::string said(const std::string& name, const std::string& role);

    /// Presses a key and tells where assistive software is told that the keyboard is after that;
    /// absent where it went nowhere.
    [[nodiscard]] std::optional<Accessible> goBy(std::uint32_t key);
    /// What Tab comes to from the bar on, until it is back there; `meet` is called at each stop.
    std::vector<Accessible> wayOfTab(const std::function<void(const Accessible&)>& meet = {});
};

/// An element in words, for messages: `push button "Refresh now"`.
[[nodiscard]] std::string wordsOf(const Accessible& element);

}  // namespace vtx::e2e
