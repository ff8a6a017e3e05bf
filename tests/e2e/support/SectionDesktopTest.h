// SPDX-License-Identifier: MIT
#pragma once

#include "support/DesktopTest.h"

namespace vtx::e2e {

/// A test that opens the popover and goes to a section by the keyboard, in English.
class SectionDesktopTest : public DesktopTest {
protected:
    /// Clicks the strip, and waits for the popover and for the keyboard to be there.
    void openPopover();
    /// What the bar offers, in its order.
    [[nodiscard]] std::vector<std::string> sections();
    /// By the digit of its place on the bar.
    void chooseSection(const std::string& section);
    /// Presses Tab until the element has the keyboard for which that holds; absent where none gets
    /// it in good time.
    [[nodiscard]] std::optional<Accessible> tabTo(
        const std::function<bool(const Accessible&)>& wanted);
    /// What is in the popover, for messages of failed tests.
    [[nodiscard]] std::string drawing();
    /// Every element of that role in the popover.
    [[nodiscard]] std::vector<Accessible> every(const std::string& role);
};

}  // namespace vtx::e2e
