// SPDX-License-Identifier: MIT
#pragma once

#include <locale.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/linux/Environment.h"

namespace vtx {

/// How the user's language sorts, by the C library's rules for the locale that is the first of
/// LC_ALL, LC_COLLATE and LANG that is not empty. A locale that is not installed, or not in UTF-8,
/// sorts by the numbers of the characters. The rules are loaded with the first key. One thread at a
/// time.
class Collation {
public:
    explicit Collation(Environment environment) : environment_(std::move(environment)) {}

    /// Bytes whose plain comparison is the comparison of the texts without regard to case.
    [[nodiscard]] std::string key(std::string_view text) const;

private:
    struct Free {
        void operator()(locale_t locale) const { ::freelocale(locale); }
    };
    using Rules = std::unique_ptr<std::remove_pointer_t<locale_t>, Free>;

    [[nodiscard]] Rules load() const;

    Environment environment_;
    mutable Rules rules_;
};

}  // namespace vtx
