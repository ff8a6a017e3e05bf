// SPDX-License-Identifier: MIT
#include "platform/linux/SensorRole.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

namespace vtx {
namespace {

using Words = std::vector<std::string>;

/// Runs of letters and digits, in lower case.
Words wordsOf(std::string_view text) {
    Words words(1);
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x80 && std::isalnum(byte))
            words.back() += static_cast<char>(std::tolower(byte));
        else if (!words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty()) words.pop_back();
    return words;
}

template <std::size_t n>
bool hasAnyOf(const Words& words, const std::array<std::string_view, n>& wanted) {
    return std::ranges::any_of(words, [&](const std::string& word) {
        return std::ranges::find(wanted, word) != wanted.end();
    });
}

bool hasWordFrom(const Words& words, std::string_view beginning) {
    return std::ranges::any_of(
        words, [&](const std::string& word) { return word.starts_with(beginning); });
}

/// Drivers of the processors' own sensors, and what firmware calls a zone of the processor.
bool isProcessors(const SensorChip& chip) {
    constexpr std::array<std::string_view, 5> drivers{"coretemp", "k10temp", "k8temp", "zenpower",
                                                      "via_cputemp"};
    if (chip.cooling == ZoneCooling::byClock) return true;
    if (chip.cooling == ZoneCooling::byFirmware) return false;
    if (std::ranges::find(drivers, chip.name) != drivers.end()) return true;
    const Words words = wordsOf(chip.name);
    // A zone of firmware that binds no cooling says what it is by its name alone.
    const bool isZone = hasAnyOf<3>(words, {"thermal", "temp", "tz"});
    return isZone && (hasWordFrom(words, "cpu") || hasAnyOf<3>(words, {"soc", "package", "pkg"}));
}

SensorRole roleByProcessor(const Words& label) {
    if (label.empty() || label.front() == "package" || label.front() == "physical" ||
        label.front() == "tdie" || label.front() == "cpu")
        return SensorRole::processor;
    if (label.front() == "tctl") return SensorRole::processorControl;
    if (label.front() == "core" || label.front().starts_with("tccd"))
        return SensorRole::processorPart;
    return SensorRole::other;
}

/// A pin of the board's controller is no statement on what is connected to it, so that "CPUTIN" is
/// none; the processor's own bus behind it is.
SensorRole roleByBoard(const Words& label) {
    constexpr std::array<std::string_view, 8> nearIt{"fan",    "vrm", "vr",      "vcore",
                                                     "socket", "mos", "chipset", "opt"};
    const bool isProcessor =
        hasAnyOf<3>(label, {"cpu", "peci", "processor"}) || hasWordFrom(label, "tsi");
    return isProcessor && !hasAnyOf(label, nearIt) ? SensorRole::board : SensorRole::other;
}

}  // namespace

SensorRole roleOf(const SensorChip& chip, std::string_view label) {
    if (chip.cooling == ZoneCooling::byFirmware) return SensorRole::firmware;
    const Words words = wordsOf(label);
    return isProcessors(chip) ? roleByProcessor(words) : roleByBoard(words);
}

}  // namespace vtx
