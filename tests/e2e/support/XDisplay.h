// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vtx::e2e {

/// A place on the screen in pixels.
struct Place {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] int middleX() const { return x + width / 2; }
    [[nodiscard]] int middleY() const { return y + height / 2; }
    friend bool operator==(const Place&, const Place&) = default;
};

/// A connection to an X server of the test's own, for looking at windows. Throws where the server
/// does not answer.
class XDisplay {
public:
    /// Reached by XAUTHORITY in the test's own environment.
    explicit XDisplay(const std::string& display);
    ~XDisplay();
    XDisplay(const XDisplay&) = delete;
    XDisplay& operator=(const XDisplay&) = delete;

    [[nodiscard]] xcb_connection_t* connection() const { return connection_; }
    [[nodiscard]] xcb_window_t root() const { return root_; }
    [[nodiscard]] Place screen() const { return screen_; }

    /// The windows that the window manager looks after.
    [[nodiscard]] std::vector<xcb_window_t> clients() const;
    /// The first of them of that type, "DOCK" for _NET_WM_WINDOW_TYPE_DOCK; 0 where there
    /// is none.
    [[nodiscard]] xcb_window_t clientOfType(const std::string& type) const;
    /// A window of programs named so that shows without the window manager, as menus do; or 0.
    [[nodiscard]] xcb_window_t popupOf(const std::string& program) const;
    /// The numbers of a property of 32 bits; none where it is not set.
    [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window,
                                                     const std::string& property) const;
    [[nodiscard]] std::string title(xcb_window_t window) const;
    /// The window without its frame.
    [[nodiscard]] Place place(xcb_window_t window) const;
    [[nodiscard]] xcb_window_t activeWindow() const;
    /// Whether the user sees it, other windows aside: one of another desktop is not shown.
    [[nodiscard]] bool isShown(xcb_window_t window) const;
    /// As a panel does at the user's word; the first one is 0.
    void goToDesktop(std::uint32_t desktop) const;
    /// As the entry of the window manager's menu that shows a window on all of them.
    void putOnEveryDesktop(xcb_window_t window) const;
    [[nodiscard]] bool isOnEveryDesktop(xcb_window_t window) const;
    /// What any program may do, without asking the window manager. None, or whatever the pointer is
    /// over, are no window.
    void giveKeyboardTo(xcb_window_t window) const;
    [[nodiscard]] xcb_atom_t atom(const std::string& name) const;

    /// Saves what the screen shows as a PNG; false if that failed.
    bool savePicture(const std::filesystem::path& file) const;

private:
    void askManager(xcb_window_t window, const std::string& property, std::uint32_t value) const;
    [[nodiscard]] bool showsUnmanaged(xcb_window_t window) const;
    [[nodiscard]] std::vector<std::uint8_t> property(xcb_window_t window,
                                                     const std::string& name) const;

    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
    Place screen_;
};

}  // namespace vtx::e2e
