// SPDX-License-Identifier: MIT
#include "smc/PersistentDenylistStore.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/UserDefaults.h"

namespace vtx {
namespace {

using Json = nlohmann::json;

std::string part(std::string_view text) {
    std::string replaced(text);
    std::ranges::replace_if(replaced, [](char each) { return each == ' ' || each == '.'; }, '_');
    return replaced;
}

/// A list without anything nested in it; whatever else the text is, it is given up early.
Json parseFlat(std::string_view text) {
    // The parser takes a zero byte for the end of its input.
    if (text.find('\0') != std::string_view::npos) return {};
    bool isNested = false;
    const auto watchDepth = [&isNested](int depth, Json::parse_event_t event, Json&) {
        const bool opens =
            event == Json::parse_event_t::array_start || event == Json::parse_event_t::object_start;
        isNested = isNested || (opens && depth > 0);
        return !isNested;
    };
    Json parsed = Json::parse(text, watchDepth, /*allow_exceptions=*/false);
    return isNested ? Json{} : parsed;
}

}  // namespace

std::string PersistentDenylistStore::storageKey(std::string_view chip, std::string_view model,
                                                std::string_view osBuild) {
    return "Vantrix.HotSpotDenylist.v1." + part(chip) + "." + part(model) + "." + part(osBuild);
}

std::optional<std::vector<std::string>> PersistentDenylistStore::load(const UserDefaults& defaults,
                                                                      std::string_view storageKey) {
    const auto stored = defaults.data(storageKey);
    if (!stored) return std::nullopt;
    const Json list = parseFlat(asText(*stored));
    if (!list.is_array()) return std::nullopt;
    std::vector<std::string> keys;
    keys.reserve(list.size());
    for (const Json& entry : list) {
        if (!entry.is_string()) return std::nullopt;
        keys.push_back(entry.get_ref<const std::string&>());
    }
    return keys;
}

void PersistentDenylistStore::save(UserDefaults& defaults, std::string_view storageKey,
                                   const SensorKeySet& keys) {
    const Json list(keys);  // ascending, as the set is
    defaults.setData(storageKey, toData(list.dump()));
}

}  // namespace vtx
