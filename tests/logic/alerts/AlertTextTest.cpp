// SPDX-License-Identifier: MIT
// What an alert says.
#include "alerts/AlertText.h"

#include <gtest/gtest.h>

#include <array>

#include "base/Shared.h"
#include "support/AlertsBench.h"

namespace vtx {
namespace {

using alertText::filled;

TEST(AlertText, every_place_of_the_number_is_filled) {
    EXPECT_EQ(filled("{value} and {value}", "{value}", 12), "12 and 12");
    EXPECT_EQ(filled("{threshold}", "{value}", 12), "{threshold}");
    EXPECT_EQ(filled("{valu} {value", "{value}", 12), "{valu} {value");
    EXPECT_EQ(filled("", "{value}", 12), "");
}

TEST(AlertText, numbers_are_whole_with_halves_away_from_zero) {
    const auto shown = [](double number) { return filled("{value}", "{value}", number); };
    EXPECT_EQ(shown(0.5), "1");
    EXPECT_EQ(shown(2.5), "3");
    EXPECT_EQ(shown(2.4999), "2");
    EXPECT_EQ(shown(-2.5), "-3");
    EXPECT_EQ(shown(-0.2), "0");
    EXPECT_EQ(shown(1e15), "1000000000000000");
}

struct SpokenAlerts : AlertsBench {
    explicit SpokenAlerts(Language language = Language::en) {
        Localization::shared().setPreference(language);
        rules = {{true, 0.845}, {true, 0.5}, {true, 0.5}, true, {true, 89.5}};
        setCPU(0.925);
        setGPU(0.999);
        setMemory(7, 9);
        memory->pressure = MemoryStats::Pressure::critical;
        setTemperature(94.4);
        roundAt(0);
        roundAt(30);
    }
    [[nodiscard]] std::string said(std::size_t which) const {
        const auto& request = center.posted().at(which);
        return request.title + ": " + request.body;
    }
};

TEST(AlertText, says_the_metric_its_value_and_its_threshold) {
    const SpokenAlerts a;
    EXPECT_EQ(a.said(0), "CPU usage high: CPU at 93% (threshold: 85%)");
    EXPECT_EQ(a.said(1), "GPU usage high: GPU at 100% (threshold: 50%)");
    EXPECT_EQ(a.said(2), "Memory almost full: RAM at 78% used");
    EXPECT_EQ(a.said(3),
              "Memory pressure critical: macOS has been reporting critical memory pressure for a "
              "while. Quit large apps or free up some memory.");
    EXPECT_EQ(a.said(4), "Temperature high: Hottest sensor at 94 °C (threshold: 90 °C)");
}

TEST(AlertText, is_in_german_where_that_is_in_force) {
    const SpokenAlerts a(Language::de);
    EXPECT_EQ(a.said(0), "CPU-Auslastung hoch: CPU bei 93% (Schwelle: 85%)");
    EXPECT_EQ(a.said(2), "Arbeitsspeicher fast voll: RAM bei 78% belegt");
    EXPECT_EQ(a.said(4), "Temperatur hoch: Höchster Sensor bei 94 °C (Schwelle: 90 °C)");
}

TEST(AlertText, is_in_english_in_every_other_language_and_has_no_place_left_to_fill) {
    const auto english = SpokenAlerts().center.posted();
    for (const Language language : allLanguages) {
        if (language == Language::de || language == Language::automatic) continue;
        const SpokenAlerts a(language);
        EXPECT_EQ(a.center.posted(), english);
        for (const auto& body : a.bodies()) EXPECT_EQ(body.find('{'), std::string::npos) << body;
    }
}

TEST(AlertText, of_memory_fills_in_no_threshold_wherever_a_text_has_a_place_for_one) {
    AlertsBench a;
    Shared<Localization>::setFactory([&a] {
        return std::make_unique<Localization>(a.platform.locale, [](Language) {
            static constexpr std::array<TextEntry, 1> words{
                {{L10n::Key::alert_memory_body, "{value} of {threshold}"}}};
            return std::span<const TextEntry>(words);
        });
    });
    a.rules.memory = {true, 0.5};
    a.setMemory(7, 9);
    a.rounds(0, 30);
    EXPECT_EQ(a.bodies(), std::vector<std::string>{"78 of {threshold}"});
}

TEST(AlertText, is_in_the_language_of_the_moment_in_which_it_is_told) {
    AlertsBench a;
    a.rules.cpu = {true, 0.5};
    a.setCPU(1.0);
    a.rounds(0, 9);
    Localization::shared().setPreference(Language::de);
    a.roundAt(10);
    EXPECT_EQ(a.center.posted().at(0).title, "CPU-Auslastung hoch");
}

}  // namespace
}  // namespace vtx
