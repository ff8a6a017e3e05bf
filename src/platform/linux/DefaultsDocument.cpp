// SPDX-License-Identifier: MIT
#include "platform/linux/DefaultsDocument.h"

#include <nlohmann/json.hpp>

#include "platform/linux/Base64.h"

namespace vtx {
namespace {

using Json = nlohmann::json;

constexpr int maxDepth = 512;

std::optional<Json> parseObject(std::string_view text) {
    // The parser takes a zero byte for the end of its input.
    if (text.find('\0') != std::string_view::npos) return std::nullopt;
    bool tooDeep = false;
    const auto watchDepth = [&](int depth, Json::parse_event_t, Json&) {
        tooDeep = tooDeep || depth > maxDepth;
        return !tooDeep;
    };
    Json parsed = Json::parse(text, watchDepth, /*allow_exceptions=*/false);
    if (tooDeep || !parsed.is_object()) return std::nullopt;
    return parsed;
}

std::optional<Data> valueOf(const Json& member) {
    if (member.is_string()) return toData(member.get_ref<const std::string&>());
    if (!member.is_object() || member.size() != 1) return std::nullopt;
    const auto encoded = member.find("base64");
    if (encoded == member.end() || !encoded->is_string()) return std::nullopt;
    return fromBase64(encoded->get_ref<const std::string&>());
}

/// The text as a JSON string; absent where it is not UTF-8.
std::optional<std::string> jsonString(std::string_view text) {
    try {
        return Json(text).dump(-1, ' ', false, Json::error_handler_t::strict);
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

std::string formatValue(const Data& value) {
    if (auto text = jsonString(asText(value))) return *std::move(text);
    return R"({"base64": ")" + toBase64(value) + R"("})";
}

}  // namespace

std::optional<DefaultsDocument> parseDefaults(std::string_view text) {
    const auto parsed = parseObject(text);
    if (!parsed) return std::nullopt;
    DefaultsDocument document;
    for (const auto& [key, member] : parsed->items()) {
        if (auto value = valueOf(member)) {
            document.values.emplace(key, *std::move(value));
        } else {
            document.foreign.emplace(key, member.dump());
        }
    }
    return document;
}

std::string formatDefaults(const DefaultsDocument& document) {
    std::map<std::string, std::string> members;
    for (const auto& [key, json] : document.foreign) members.emplace(key, json);
    for (const auto& [key, value] : document.values) members.emplace(key, formatValue(value));
    std::string text = "{";
    for (const auto& [key, json] : members) {
        const auto name = jsonString(key);
        if (!name) continue;
        text += text.size() == 1 ? "\n  " : ",\n  ";
        text += *name + ": " + json;
    }
    return text += "\n}\n";
}

}  // namespace vtx
