// SPDX-License-Identifier: MIT
#include <algorithm>

#include "Fuzz.h"
#include "language/Language.h"
#include "platform/linux/LinuxLocale.h"

using namespace vtx;

// The value of LANGUAGE, a zero byte, and the locale.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const auto cut = std::min(text.find('\0'), text.size());
    const auto list = text.substr(0, cut);
    const auto locale = text.substr(std::min(cut + 1, text.size()));

    fuzz::expect(languageOfTag(text) != Language::automatic);
    const Language stored = languageFromStoredCode(text);
    fuzz::expect(stored == Language::en || rawValue(stored) == text);

    const LinuxLocale port([&](std::string_view name) -> std::optional<std::string> {
        if (name == "LANGUAGE") return std::string(list);
        if (name == "LANG") return std::string(locale);
        return std::nullopt;
    });
    const auto tags = port.preferredLanguages();
    for (const std::string& tag : tags) {
        fuzz::expect(tag.size() >= 2 && std::ranges::count(tags, tag) == 1);
        fuzz::expect(std::ranges::all_of(tag, [](char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                   c == '-';
        }));
        fuzz::expect(languageOfTag(tag) != Language::automatic);
    }
    return 0;
}
