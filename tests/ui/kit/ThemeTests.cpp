// SPDX-License-Identifier: MIT
#include "ui/kit/Theme.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QPalette>
#include <string>

#include "ui/support/FixedTheme.h"

namespace vtx {
namespace {

struct TokenValue {
    ColorToken token;
    QRgb dark;
    QRgb light;
};

class TokenTable : public testing::TestWithParam<TokenValue> {};

TEST_P(TokenTable, has_the_exact_value) {
    const TokenValue& expected = GetParam();
    EXPECT_EQ(tokenColor(expected.token, Appearance::dark).rgba(), expected.dark);
    EXPECT_EQ(tokenColor(expected.token, Appearance::light).rgba(), expected.light);
}

INSTANTIATE_TEST_SUITE_P(Color, TokenTable,
                         testing::Values(TokenValue{ColorToken::window, 0xFF15171B, 0xFFF3F4F6},
                                         TokenValue{ColorToken::card, 0xFF1D2025, 0xFFFFFFFF},
                                         TokenValue{ColorToken::track, 0x1AFFFFFF, 0x1A0F141E},
                                         TokenValue{ColorToken::hover, 0x12FFFFFF, 0x0E0F141E},
                                         TokenValue{ColorToken::cardBorder, 0x14FFFFFF, 0x1A0F141E},
                                         TokenValue{ColorToken::text2, 0xFFABB2BE, 0xFF525965},
                                         TokenValue{ColorToken::accent, 0xFF1AE8CF, 0xFF00776B},
                                         TokenValue{ColorToken::cpu, 0xFF66A6FF, 0xFF1D63C9},
                                         TokenValue{ColorToken::pCore, 0xFF7380FF, 0xFF4A52D6},
                                         TokenValue{ColorToken::eCore, 0xFF33D9C7, 0xFF00786C},
                                         TokenValue{ColorToken::gpu, 0xFFC773FF, 0xFF8B36CC},
                                         TokenValue{ColorToken::memory, 0xFFFF9E4D, 0xFFA85100},
                                         TokenValue{ColorToken::red, 0xFFFF6961, 0xFFBD2028},
                                         TokenValue{ColorToken::onRed, 0xFF2A0504, 0xFFFFFFFF},
                                         TokenValue{ColorToken::memoryFree, 0x1AFFFFFF,
                                                    0xFFE3E5E9}));

struct Readable {
    ColorToken text;
    double least;
};

class TextContrast : public testing::TestWithParam<Readable> {};

TEST_P(TextContrast, can_be_read_on_window_card_and_raised) {
    for (const Appearance appearance : {Appearance::dark, Appearance::light}) {
        const QColor text = tokenColor(GetParam().text, appearance);
        for (const ColorToken ground : {ColorToken::window, ColorToken::card, ColorToken::raised}) {
            if (GetParam().text == ColorToken::pCore && ground == ColorToken::raised) continue;
            EXPECT_GE(contrastRatio(text, tokenColor(ground, appearance)), GetParam().least);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Color, TextContrast,
    testing::Values(Readable{ColorToken::text1, 6}, Readable{ColorToken::text2, 6},
                    Readable{ColorToken::text3, 4.5}, Readable{ColorToken::accent, 4.5},
                    Readable{ColorToken::cpu, 4.5}, Readable{ColorToken::pCore, 4.5},
                    Readable{ColorToken::eCore, 4.5}, Readable{ColorToken::gpu, 4.5},
                    Readable{ColorToken::memory, 4.5}, Readable{ColorToken::cyan, 4.5},
                    Readable{ColorToken::green, 4.5}, Readable{ColorToken::yellow, 4.5},
                    Readable{ColorToken::orange, 4.5}, Readable{ColorToken::red, 4.5}));

TEST(Color, text_on_a_solid_colour_can_be_read) {
    for (const Appearance appearance : {Appearance::dark, Appearance::light}) {
        const auto of = [appearance](ColorToken token) { return tokenColor(token, appearance); };
        EXPECT_GE(contrastRatio(of(ColorToken::onAccent), of(ColorToken::accent)), 4.5);
        EXPECT_GE(contrastRatio(of(ColorToken::onRed), of(ColorToken::red)), 4.5);
    }
}

TEST(Color, a_layer_mixes_with_what_is_below_it) {
    EXPECT_EQ(over(QColor(0, 0, 0), QColor(255, 255, 255, 51)).red(), 51);
    EXPECT_EQ(over(QColor(10, 20, 30), QColor(200, 200, 200, 0)).rgb(), QColor(10, 20, 30).rgb());
}

TEST(Theme, tells_when_the_appearance_changes_and_only_then) {
    test::FixedTheme fixed(Appearance::dark);
    int changes = 0;
    const auto connection =
        QObject::connect(&Theme::current(), &Theme::changed, [&changes] { ++changes; });

    fixed.set(Appearance::light);
    fixed.set(Appearance::light);

    EXPECT_EQ(changes, 1);
    EXPECT_EQ(Theme::current().color(ColorToken::window).rgba(), 0xFFF3F4F6);
    QObject::disconnect(connection);
}

TEST(Theme, the_environment_decides_over_the_desktop) {
    qputenv("VANTRIX_APPEARANCE", "light");
    {
        test::FixedTheme fixed(Appearance::dark);
        EXPECT_EQ(Theme::current().appearance(), Appearance::light);
    }
    qunsetenv("VANTRIX_APPEARANCE");
    test::FixedTheme fixed(Appearance::dark);
    EXPECT_EQ(Theme::current().appearance(), Appearance::dark);
}

TEST(PaletteAppearanceSource, follows_the_lightness_of_the_applications_windows) {
    const QPalette before = QGuiApplication::palette();
    PaletteAppearanceSource source;
    int changes = 0;
    source.changed = [&changes] { ++changes; };

    QPalette dark = before;
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    dark.setColor(QPalette::WindowText, QColor(240, 240, 240));
    QGuiApplication::setPalette(dark);
    EXPECT_EQ(source.appearance(), Appearance::dark);
    QGuiApplication::setPalette(before);
    EXPECT_EQ(source.appearance(), Appearance::light);
    EXPECT_EQ(changes, 2);
}

}  // namespace
}  // namespace vtx
