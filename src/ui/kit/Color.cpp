// SPDX-License-Identifier: MIT
#include "ui/kit/Color.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vtx {

namespace {

struct Pair {
    ColorToken token;
    QRgb dark;
    QRgb light;
};

constexpr QRgb veil(QRgb rgb, double percent) {
    return (rgb & 0x00FFFFFFU) | (static_cast<QRgb>(percent * 2.55 + 0.5) << 24U);
}
constexpr QRgb rgb(QRgb value) { return value | 0xFF000000U; }
constexpr QRgb white(double percent) { return veil(0xFFFFFF, percent); }
constexpr QRgb ink(double percent) { return veil(0x0F141E, percent); }

// In the order of ColorToken.
constexpr std::array palette{
    Pair{ColorToken::window, rgb(0x15171B), rgb(0xF3F4F6)},
    Pair{ColorToken::card, rgb(0x1D2025), rgb(0xFFFFFF)},
    Pair{ColorToken::raised, rgb(0x282C32), rgb(0xFFFFFF)},
    Pair{ColorToken::thumb, rgb(0x464C56), rgb(0xFFFFFF)},
    Pair{ColorToken::field, rgb(0x101215), rgb(0xFFFFFF)},
    Pair{ColorToken::track, white(10), ink(10)},
    Pair{ColorToken::hover, white(7), ink(5.5)},
    Pair{ColorToken::press, white(13), ink(11)},
    Pair{ColorToken::cardBorder, white(8), ink(10)},
    Pair{ColorToken::borderStrong, white(16), ink(18)},
    Pair{ColorToken::separator, white(7.5), ink(9)},
    Pair{ColorToken::grid, white(7), ink(8)},
    Pair{ColorToken::text1, rgb(0xF2F4F7), rgb(0x15181D)},
    Pair{ColorToken::text2, rgb(0xABB2BE), rgb(0x525965)},
    Pair{ColorToken::text3, rgb(0x9098A5), rgb(0x5F6672)},
    Pair{ColorToken::disabled, rgb(0x5C6470), rgb(0xA7ADB6)},
    Pair{ColorToken::accent, rgb(0x1AE8CF), rgb(0x00776B)},
    Pair{ColorToken::onAccent, rgb(0x04211D), rgb(0xFFFFFF)},
    Pair{ColorToken::cpu, rgb(0x66A6FF), rgb(0x1D63C9)},
    Pair{ColorToken::pCore, rgb(0x7380FF), rgb(0x4A52D6)},
    Pair{ColorToken::eCore, rgb(0x33D9C7), rgb(0x00786C)},
    Pair{ColorToken::gpu, rgb(0xC773FF), rgb(0x8B36CC)},
    Pair{ColorToken::memory, rgb(0xFF9E4D), rgb(0xA85100)},
    Pair{ColorToken::cyan, rgb(0x4CC9F0), rgb(0x0A718F)},
    Pair{ColorToken::green, rgb(0x3DD68C), rgb(0x107038)},
    Pair{ColorToken::yellow, rgb(0xF5D04C), rgb(0x7F5F00)},
    Pair{ColorToken::orange, rgb(0xFF8F40), rgb(0xA64405)},
    Pair{ColorToken::red, rgb(0xFF6961), rgb(0xBD2028)},
    Pair{ColorToken::onRed, rgb(0x2A0504), rgb(0xFFFFFF)},
    Pair{ColorToken::memoryWired, rgb(0xD4622B), rgb(0x8A3C00)},
    Pair{ColorToken::memoryActive, rgb(0xFF9E4D), rgb(0xD9741C)},
    Pair{ColorToken::memoryCompressed, rgb(0xFFD39A), rgb(0xEFB36C)},
    Pair{ColorToken::memoryInactive, rgb(0x75685D), rgb(0xB4AAA0)},
    Pair{ColorToken::memoryFree, white(10), rgb(0xE3E5E9)},
};

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < palette.size(); ++i) {
        if (static_cast<std::size_t>(palette[i].token) != i) return false;
    }
    return palette.size() == static_cast<std::size_t>(ColorToken::memoryFree) + 1;
}
static_assert(isInOrder());

double linear(float channel) {
    const double value = static_cast<double>(channel);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(QColor color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

}  // namespace

QColor tokenColor(ColorToken token, Appearance appearance) {
    const Pair& pair = palette.at(static_cast<std::size_t>(token));
    return QColor::fromRgba(appearance == Appearance::dark ? pair.dark : pair.light);
}

QColor withOpacity(QColor color, float opacity) {
    color.setAlphaF(std::clamp(opacity, 0.0F, 1.0F));
    return color;
}

QColor over(QColor base, QColor layer) {
    const float a = layer.alphaF();
    const auto mix = [a](float below, float above) { return below + (above - below) * a; };
    return QColor::fromRgbF(mix(base.redF(), layer.redF()), mix(base.greenF(), layer.greenF()),
                            mix(base.blueF(), layer.blueF()));
}

double contrastRatio(QColor first, QColor second) {
    const double a = luminance(first);
    const double b = luminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

}  // namespace vtx
