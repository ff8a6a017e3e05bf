// SPDX-License-Identifier: MIT
#include "support/UserInput.h"

#include <xcb/xtest.h>

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace vtx::e2e {

void UserInput::send(std::uint8_t type, std::uint8_t detail, int x, int y) const {
    xcb_test_fake_input(display_.connection(), type, detail, XCB_CURRENT_TIME, display_.root(),
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    xcb_flush(display_.connection());
}

void UserInput::moveTo(int x, int y) const { send(XCB_MOTION_NOTIFY, 0, x, y); }

void UserInput::click(const Place& place, Button button) const {
    moveTo(place.middleX(), place.middleY());
    send(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button));
    send(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

void UserInput::clickWith(std::uint32_t modifier, const Place& place) const {
    hold(modifier);
    click(place);
    letGo(modifier);
}

void UserInput::drag(const Place& place, int byX, int byY) const {
    constexpr int steps = 10;
    moveTo(place.middleX(), place.middleY());
    send(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(Button::left));
    for (int step = 1; step <= steps; ++step)
        moveTo(place.middleX() + byX * step / steps, place.middleY() + byY * step / steps);
    send(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(Button::left));
}

void UserInput::press(std::uint32_t key) const {
    hold(key);
    letGo(key);
}

void UserInput::pressWith(std::uint32_t modifier, std::uint32_t key) const {
    hold(modifier);
    press(key);
    letGo(modifier);
}

void UserInput::type(const std::string& text) const {
    for (const char letter : text) press(static_cast<unsigned char>(letter));
}

void UserInput::hold(std::uint32_t key) const { send(XCB_KEY_PRESS, codeOf(key)); }

void UserInput::letGo(std::uint32_t key) const { send(XCB_KEY_RELEASE, codeOf(key)); }

std::uint8_t UserInput::codeOf(std::uint32_t key) const {
    const xcb_setup_t* setup = xcb_get_setup(display_.connection());
    const auto first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const std::unique_ptr<xcb_get_keyboard_mapping_reply_t, decltype(&std::free)> reply(
        xcb_get_keyboard_mapping_reply(
            display_.connection(), xcb_get_keyboard_mapping(display_.connection(), first, count),
            nullptr),
        std::free);
    if (!reply) throw std::runtime_error("the display tells of no keyboard");
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (int i = 0; i < count; ++i)
        if (symbols[static_cast<std::ptrdiff_t>(i) * reply->keysyms_per_keycode] == key)
            return static_cast<std::uint8_t>(first + i);
    throw std::runtime_error("a key is not on the keyboard");
}

}  // namespace vtx::e2e
