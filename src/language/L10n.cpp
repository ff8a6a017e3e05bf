// SPDX-License-Identifier: MIT
#include "language/L10n.h"

#include <algorithm>
#include <source_location>
#include <utility>

namespace vtx::L10n {
namespace {

// The compiler spells the key in the name of this function, "... Key::cpu_total]" or
// "... Key::cpu_total; ...": the names are thus written once, in the enumeration.
template <Key key>
consteval std::string_view nameOf() {
    constexpr std::string_view marker = "Key::";
    const std::string_view function = std::source_location::current().function_name();
    const std::size_t start = function.rfind(marker) + marker.size();
    return function.substr(start, function.find_first_of("];", start) - start);
}

static_assert(nameOf<Key::section_overview>() == "section_overview");
static_assert(nameOf<Key::last60s>() == "last60s");

template <std::size_t... index>
consteval auto namesOfAll(std::index_sequence<index...>) {
    return std::array<std::string_view, keyCount>{nameOf<static_cast<Key>(index)>()...};
}

constexpr auto names = namesOfAll(std::make_index_sequence<keyCount>{});

}  // namespace

std::string_view rawValue(Key key) { return names[indexOf(key)]; }

std::optional<Key> keyFromRawValue(std::string_view rawValue) {
    const auto found = std::ranges::find(names, rawValue);
    if (found == names.end()) return std::nullopt;
    return allKeys[static_cast<std::size_t>(found - names.begin())];
}

}  // namespace vtx::L10n
