// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"

namespace vtx {

/// What the user's system says of language and region. Main executor.
class Locale {
public:
    Locale() = default;
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;
    virtual ~Locale() = default;

    /// The user's languages as BCP 47 tags, most preferred first; may be empty.
    [[nodiscard]] virtual std::vector<std::string> preferredLanguages() const = 0;

    /// Bytes by whose plain comparison texts sort as the user's language sorts them, without regard
    /// to case: those that differ in nothing else have the same key.
    [[nodiscard]] virtual std::string collationKey(std::string_view text) const = 0;

    /// The text in small letters, whatever the language: for comparing without regard to case.
    [[nodiscard]] virtual std::string lowercased(std::string_view text) const = 0;

    /// Hour, minute and second of a moment as the user writes them, such as "14:32:07".
    [[nodiscard]] virtual std::string timeOfDay(Date date) const = 0;
};

}  // namespace vtx
