// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxLocale.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vtx {
namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

bool isLanguage(std::string_view text) {
    return (text.size() == 2 || text.size() == 3) && std::ranges::all_of(text, isLetter);
}

bool isRegion(std::string_view text) {
    return (text.size() == 2 && std::ranges::all_of(text, isLetter)) ||
           (text.size() == 3 && std::ranges::all_of(text, isDigit));
}

std::string transformed(std::string_view text, char (*each)(char)) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), each);
    return result;
}

/// Modifiers that say a script; the others (@euro) say nothing of the language.
std::string_view scriptOf(std::string_view modifier) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> scripts{
        {{"latin", "Latn"}, {"cyrillic", "Cyrl"}, {"devanagari", "Deva"}, {"arabic", "Arab"}}};
    const auto known = std::ranges::find(scripts, modifier, [](const auto& s) { return s.first; });
    return known == scripts.end() ? std::string_view{} : known->second;
}

std::string_view takeUpTo(std::string_view& text, char separator) {
    const auto end = std::min(text.find(separator), text.size());
    const auto part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

/// The locale whose texts are the programs' own.
bool isPlain(std::string_view locale) {
    const std::string_view codeless = takeUpTo(locale, '.');
    return codeless == "C" || codeless == "POSIX";
}

/// More than anyone reads; a list of thousands would only cost time.
constexpr std::size_t mostLanguages = 64;

}  // namespace

std::optional<std::string> LinuxLocale::languageTag(std::string_view locale) {
    std::string_view rest = locale;
    std::string_view place = takeUpTo(rest, '@');
    const std::string_view modifier = rest;
    place = takeUpTo(place, '.');
    const std::string_view language = takeUpTo(place, '_');
    if (!isLanguage(language)) return std::nullopt;

    std::string tag = transformed(language, lower);
    if (const auto script = scriptOf(modifier); !script.empty()) tag.append("-").append(script);
    if (isRegion(place)) tag += '-' + transformed(place, upper);
    if (modifier == "valencia") tag += "-valencia";
    return tag;
}

std::string LinuxLocale::messageLocale() const {
    for (const auto* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (auto locale = environment_(name); locale && !locale->empty()) return *std::move(locale);
    }
    return "C";
}

std::vector<std::string> LinuxLocale::preferredLanguages() const {
    const std::string locale = messageLocale();
    if (isPlain(locale)) return {"en"};

    std::vector<std::string> tags;
    const auto add = [&tags](std::string_view name) {
        auto tag = languageTag(name);
        if (tag && std::ranges::find(tags, *tag) == tags.end()) tags.push_back(*std::move(tag));
    };
    const std::string list = environment_("LANGUAGE").value_or("");
    for (std::string_view rest = list; !rest.empty() && tags.size() < mostLanguages;)
        add(takeUpTo(rest, ':'));
    add(locale);
    return tags;
}

}  // namespace vtx
