// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedLocale.h"

#include <fmt/format.h>

#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

/// Of the letter whose second byte in UTF-8 this is, the first one being 0xC3.
char baseLetter(char second) {
    constexpr std::string_view bases = "aaaaaaaceeeeiiiidnooooo*ouuuuyts";
    return bases[static_cast<unsigned char>(second) & 0x1F];
}

}  // namespace

std::vector<std::string> SimulatedLocale::preferredLanguages() const {
    instruments_.counter.count(operations::preferredLanguages);
    return mac_.preferredLanguages;
}

std::string SimulatedLocale::lowercased(std::string_view text) const {
    std::string small;
    for (const char c : text) {
        // The capitals of Latin-1 are 32 below their small letters; one of them is a sign.
        const auto byte = static_cast<unsigned char>(c);
        const bool isLatin = !small.empty() && small.back() == '\xC3';
        const bool isCapital = isLatin && byte >= 0x80 && byte <= 0x9E && byte != 0x97;
        small += isCapital ? static_cast<char>(byte | 0x20U) : lower(c);
    }
    return small;
}

std::string SimulatedLocale::collationKey(std::string_view text) const {
    std::string bases;
    std::string accents;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isLatin = text[i] == '\xC3' && i + 1 < text.size();
        const char letter = isLatin ? baseLetter(text[++i]) : lower(text[i]);
        bases += letter;
        // Capitals are 32 below their small letters, which decides nothing here.
        accents += isLatin ? static_cast<char>(text[i] | 0x20) : '\x01';
    }
    return bases + '\0' + accents;
}

std::string SimulatedLocale::timeOfDay(Date date) const {
    const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::seconds>(
        date - std::chrono::floor<std::chrono::days>(date)));
    return fmt::format("{:02}:{:02}:{:02}", time.hours().count(), time.minutes().count(),
                       time.seconds().count());
}

}  // namespace vtx
