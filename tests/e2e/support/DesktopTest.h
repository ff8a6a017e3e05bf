// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include "support/Desktop.h"

namespace vtx::e2e {

/// The percentage in a spoken text of the strip; absent where it says none.
std::optional<int> percentIn(std::string_view text);

/// A test with a desktop of its own and the program on it. When it fails, it tells what the
/// programs said and what was on the accessibility bus, and keeps a picture of the screen.
class DesktopTest : public testing::Test {
protected:
    void TearDown() override;

    /// Starts the program and waits for its strip.
    void start(const std::string& program, const std::string& name) {
        start(std::vector{program}, name);
    }
    void start(std::vector<std::string> command, const std::string& name);
    void startVantrix() { start(VANTRIX_PROGRAM, "vantrix"); }

    /// The strip on the accessibility bus; absent until it is there.
    [[nodiscard]] std::optional<Accessible> strip();
    /// The percentage in the strip's spoken text; absent while it says none.
    [[nodiscard]] std::optional<int> spokenCpu();
    [[nodiscard]] Place stripPlace();

    /// The window of the popover on the accessibility bus, while it is open.
    [[nodiscard]] std::optional<Accessible> popover();
    [[nodiscard]] bool isPopoverOpen() { return popover().has_value(); }
    [[nodiscard]] bool isMenuOpen() { return display().popupOf(applicationName) != 0; }
    /// A window that shows, by its accessible name.
    [[nodiscard]] std::optional<Accessible> windowNamed(const std::string& name);
    /// The element of an X window that shows.
    [[nodiscard]] std::optional<Accessible> elementOf(xcb_window_t window);
    /// The menu as assistive software meets it, once the strip's menu was asked for: by the focus
    /// that goes to its first entry.
    [[nodiscard]] std::optional<Accessible> openedMenu();
    /// Opens the strip's menu and clicks on an entry.
    void choose(const std::string& name);
    /// Where nothing of the program is.
    [[nodiscard]] Place emptyPlace();

    Desktop desktop;
    std::unique_ptr<ChildProcess> vantrix;
    std::string applicationName;

    UserInput& user() { return desktop.user(); }
    XDisplay& display() { return desktop.display(); }

private:
    [[nodiscard]] std::vector<Accessible> windows();
};

}  // namespace vtx::e2e
