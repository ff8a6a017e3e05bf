// SPDX-License-Identifier: MIT
#pragma once

#include <locale.h>

#include <memory>
#include <string>
#include <type_traits>

#include "base/Date.h"
#include "platform/linux/Environment.h"

namespace vtx {

/// How the user writes the time of a day, by the C library's rules for the locale that is the first
/// of LC_ALL, LC_TIME and LANG that is not empty, in the time zone of the process. A locale that is
/// not installed, or not in UTF-8, writes it as "14:32:07". The rules are loaded with the first
/// text. One thread at a time.
class TimeOfDay {
public:
    explicit TimeOfDay(Environment environment) : environment_(std::move(environment)) {}

    /// Hour, minute and second.
    [[nodiscard]] std::string text(Date date) const;

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
