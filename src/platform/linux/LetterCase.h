// SPDX-License-Identifier: MIT
#pragma once

#include <locale.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace vtx {

/// The text in small letters by the rules of a locale in UTF-8, up to a zero byte, bad sequences
/// repaired.
[[nodiscard]] std::string lowercased(std::string_view text, locale_t rules);

/// Small letters whatever the language, by the C library's own locale. Its rules are loaded with
/// the first text that needs them. One thread at a time.
class LetterCase {
public:
    [[nodiscard]] std::string lowercased(std::string_view text) const;

private:
    struct Free {
        void operator()(locale_t locale) const { ::freelocale(locale); }
    };
    mutable std::unique_ptr<std::remove_pointer_t<locale_t>, Free> rules_;
};

}  // namespace vtx
