// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "support/XDisplay.h"

namespace vtx::e2e {

/// Keys by their symbols.
namespace key {
inline constexpr std::uint32_t escape = 0xFF1B;
inline constexpr std::uint32_t enter = 0xFF0D;
inline constexpr std::uint32_t tab = 0xFF09;
inline constexpr std::uint32_t backspace = 0xFF08;
inline constexpr std::uint32_t space = 0x20;
inline constexpr std::uint32_t home = 0xFF50;
inline constexpr std::uint32_t end = 0xFF57;
inline constexpr std::uint32_t left = 0xFF51;
inline constexpr std::uint32_t up = 0xFF52;
inline constexpr std::uint32_t right = 0xFF53;
inline constexpr std::uint32_t down = 0xFF54;
inline constexpr std::uint32_t menu = 0xFF67;
inline constexpr std::uint32_t control = 0xFFE3;
inline constexpr std::uint32_t alt = 0xFFE9;
inline constexpr std::uint32_t f4 = 0xFFC1;
inline constexpr std::uint32_t h = 0x68;
inline constexpr std::uint32_t q = 0x71;
/// 0 to 9.
[[nodiscard]] constexpr std::uint32_t digit(unsigned number) { return 0x30 + number; }
}  // namespace key

/// The hand of the user on mouse and keyboard: what it does reaches programs as from real devices.
class UserInput {
public:
    enum class Button : std::uint8_t { left = 1, right = 3 };

    explicit UserInput(const XDisplay& display) : display_(display) {}

    void moveTo(int x, int y) const;
    void click(const Place& place, Button button = Button::left) const;
    void clickWith(std::uint32_t modifier, const Place& place) const;
    /// With the left button, from the middle of a place.
    void drag(const Place& place, int byX, int byY) const;
    void press(std::uint32_t key) const;
    void pressWith(std::uint32_t modifier, std::uint32_t key) const;
    /// Small letters, digits and what else needs no second key.
    void type(std::string_view text) const;

private:
    void send(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0) const;
    void hold(std::uint32_t key) const;
    void letGo(std::uint32_t key) const;
    [[nodiscard]] std::uint8_t codeOf(std::uint32_t key) const;

    const XDisplay& display_;
};

}  // namespace vtx::e2e
