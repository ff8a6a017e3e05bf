// SPDX-License-Identifier: MIT
#include "platform/linux/Collation.h"

#include <langinfo.h>
#include <string.h>

#include <cstddef>

#include "platform/linux/LetterCase.h"

namespace vtx {
namespace {

locale_t locale(const char* name) {
    return ::newlocale(LC_COLLATE_MASK | LC_CTYPE_MASK, name, locale_t{});
}

}  // namespace

Collation::Rules Collation::load() const {
    std::string name;
    for (const auto* variable : {"LC_ALL", "LC_COLLATE", "LANG"})
        if (name.empty()) name = environment_(variable).value_or("");
    Rules wanted(name.empty() ? locale_t{} : locale(name.c_str()));
    if (wanted && std::string_view(::nl_langinfo_l(CODESET, wanted.get())) == "UTF-8")
        return wanted;
    Rules plain(locale("C.UTF-8"));
    return plain ? std::move(plain) : Rules(locale("C"));
}

std::string Collation::key(std::string_view text) const {
    if (!rules_) rules_ = load();
    if (!rules_) return std::string(text);
    const std::string small = lowercased(text, rules_.get());
    std::string key(small.size() * 4 + 16, '\0');
    std::size_t length = ::strxfrm_l(key.data(), small.c_str(), key.size(), rules_.get());
    if (length >= key.size()) {
        key.resize(length + 1);
        length = ::strxfrm_l(key.data(), small.c_str(), key.size(), rules_.get());
    }
    key.resize(length);
    return key;
}

}  // namespace vtx
