// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>
#include <xcb/xcb.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vtx::bench {

/// Keys by their symbols.
namespace key {
inline constexpr std::uint32_t tab = 0xFF09;
inline constexpr std::uint32_t escape = 0xFF1B;
inline constexpr std::uint32_t enter = 0xFF0D;
inline constexpr std::uint32_t left = 0xFF51;
inline constexpr std::uint32_t down = 0xFF54;
inline constexpr std::uint32_t end = 0xFF57;
/// 0 to 9.
[[nodiscard]] constexpr std::uint32_t digit(unsigned number) { return 0x30 + number; }
}  // namespace key

namespace button {
inline constexpr std::uint8_t left = 1;
inline constexpr std::uint8_t right = 3;
inline constexpr std::uint8_t wheelUp = 4;
inline constexpr std::uint8_t wheelDown = 5;
}  // namespace button

/// The display as one process's windows on it, and a hand on its mouse and keyboard.
class ProcessWindows {
public:
    using Windows = std::set<xcb_window_t>;

    /// Throws `std::runtime_error` where no display answers.
    explicit ProcessWindows(pid_t process);
    ~ProcessWindows();
    ProcessWindows(const ProcessWindows&) = delete;
    ProcessWindows& operator=(const ProcessWindows&) = delete;

    /// The process of the X server; absent where that cannot be told, as on another machine.
    [[nodiscard]] std::optional<pid_t> server() const;

    /// The windows of the process that can be seen.
    [[nodiscard]] Windows shown();
    /// The same without tooltips, which come by themselves.
    [[nodiscard]] Windows surfaces();
    [[nodiscard]] std::optional<xcb_window_t> strip();
    /// In pixels; 0 where it has gone.
    [[nodiscard]] int width(xcb_window_t window);
    /// A digest of the window's picture, or of the first `columns` of it; absent while it cannot
    /// be seen.
    [[nodiscard]] std::optional<std::size_t> picture(
        xcb_window_t window, std::uint16_t columns = std::numeric_limits<std::uint16_t>::max());

    /// In the window's middle. Throws `std::runtime_error` where it has gone, as the next one.
    void click(xcb_window_t window, std::uint8_t button);
    /// Moves the pointer to a part of the window's width and height, from 0.0 to 1.0.
    void pointAt(xcb_window_t window, double across, double down);
    /// Where the pointer is.
    void clickHere(std::uint8_t button);
    /// Moves the pointer to where no window of the process is wont to be.
    void pointAway();
    void press(std::uint32_t key);
    /// As the window manager's close button does.
    void requestClose(xcb_window_t window);

private:
    [[nodiscard]] xcb_atom_t atom(const std::string& name);
    [[nodiscard]] bool isOfType(xcb_window_t window, std::string_view type);
    [[nodiscard]] std::vector<std::uint32_t> words(xcb_window_t window, std::string_view property);
    [[nodiscard]] bool isSeen(xcb_window_t window);
    void collect(xcb_window_t parent, Windows& found);
    [[nodiscard]] std::uint8_t keyCode(std::uint32_t symbol);
    void input(std::uint8_t type, std::uint8_t detail, std::int16_t x = 0, std::int16_t y = 0);

    pid_t process_;
    xcb_connection_t* x_;
    const xcb_screen_t* screen_;
    xcb_window_t root_;
};

}  // namespace vtx::bench
