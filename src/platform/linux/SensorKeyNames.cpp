// SPDX-License-Identifier: MIT
#include "platform/linux/SensorKeyNames.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::string_view letters =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::size_t nameLength = 4;

bool isName(std::string_view text) {
    return text.size() == nameLength && text.find_first_not_of(letters) == std::string_view::npos;
}

std::string nameAt(std::string_view prefix, std::uint64_t place) {
    std::string name(prefix);
    while (name.size() < nameLength) {
        name += letters[place % letters.size()];
        place /= letters.size();
    }
    return name;
}

std::string escaped(std::string_view text) {
    std::string line;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte > 0x20 && byte < 0x7f && character != '%')
            line += character;
        else
            line += fmt::format("%{:02x}", byte);
    }
    return line;
}

/// Absent for what was never escaped.
std::optional<std::string> unescaped(std::string_view line) {
    std::string text;
    while (!line.empty()) {
        if (line.front() != '%') {
            text += line.front();
            line.remove_prefix(1);
            continue;
        }
        if (line.size() < 3) return std::nullopt;
        unsigned byte = 0;
        const char* const end = line.data() + 3;
        if (std::from_chars(line.data() + 1, end, byte, 16).ptr != end) return std::nullopt;
        text += static_cast<char>(byte);
        line.remove_prefix(3);
    }
    return text;
}

}  // namespace

std::uint64_t SensorKeyNames::stableHash(std::string_view text) {
    std::uint64_t hash = 14'695'981'039'346'656'037U;
    for (const char character : text)
        hash = (hash ^ static_cast<unsigned char>(character)) * 1'099'511'628'211U;
    return hash;
}

SensorKeyNames::SensorKeyNames(UserDefaults& defaults, Hash hash)
    : defaults_(defaults), hash_(std::move(hash)) {
    load();
}

void SensorKeyNames::load() {
    const auto stored = defaults_.data(settingsKey);
    if (!stored) return;
    std::string_view text = asText(*stored);
    while (!text.empty() && chosen_.size() < mostStored) {
        const auto line = takeLine(text);
        const auto name = line.substr(0, std::min(line.find(' '), line.size()));
        if (!isName(name) || line.size() <= name.size() + 1) continue;
        if (auto identity = unescaped(line.substr(name.size() + 1)))
            chosen_.emplace(name, *std::move(identity));
    }
}

std::optional<std::string> SensorKeyNames::nameOf(std::string_view prefix,
                                                  std::string_view identity) {
    const Owner owner{prefix, identity};
    if (const auto known = names_.find(owner); known != names_.end()) return known->second;
    auto name = choose(prefix, identity);
    if (!name) return std::nullopt;
    owners_[*name] = owner;
    names_[owner] = *name;
    return name;
}

std::optional<std::string> SensorKeyNames::choose(std::string_view prefix,
                                                  std::string_view identity) {
    for (const auto& [name, who] : chosen_)
        if (who == identity && name.starts_with(prefix) && !owners_.contains(name)) return name;
    std::uint64_t room = 1;
    for (std::size_t i = prefix.size(); i < nameLength; ++i) room *= letters.size();
    const std::uint64_t first = hash_(identity) % room;
    for (std::uint64_t step = 0; step < room; ++step) {
        auto name = nameAt(prefix, (first + step) % room);
        if (owners_.contains(name) || chosen_.contains(name)) continue;
        if (step > 0 && chosen_.size() < mostStored) {
            chosen_.emplace(name, identity);
            hasNews_ = true;
        }
        return name;
    }
    return std::nullopt;
}

void SensorKeyNames::store() {
    if (!std::exchange(hasNews_, false)) return;
    std::string text;
    for (const auto& [name, identity] : chosen_) text += name + " " + escaped(identity) + "\n";
    defaults_.setData(settingsKey, toData(text));
}

}  // namespace vtx
