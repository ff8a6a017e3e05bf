// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Locale.h"
#include "platform/linux/Collation.h"
#include "platform/linux/Environment.h"
#include "platform/linux/LetterCase.h"
#include "platform/linux/TimeOfDay.h"

namespace vtx {

/// Language and region by the environment, with the rules of the system's message catalogues: the
/// locale is the first of LC_ALL, LC_MESSAGES and LANG that is not empty; the languages of LANGUAGE
/// come before it, unless the locale is "C" or "POSIX", as it is where nothing is set: that is
/// plain English. Main executor; owned by the platform.
class LinuxLocale final : public Locale {
public:
    explicit LinuxLocale(Environment environment)
        : environment_(std::move(environment)),
          collation_(environment_),
          timeOfDay_(environment_) {}

    [[nodiscard]] std::vector<std::string> preferredLanguages() const override;
    [[nodiscard]] std::string collationKey(std::string_view text) const override {
        return collation_.key(text);
    }
    [[nodiscard]] std::string lowercased(std::string_view text) const override {
        return letterCase_.lowercased(text);
    }
    [[nodiscard]] std::string timeOfDay(Date date) const override { return timeOfDay_.text(date); }

    /// "de_AT.UTF-8@euro" as "de-AT", "sr_RS@latin" as "sr-Latn-RS"; absent for "C", "POSIX" and
    /// for what names no language.
    [[nodiscard]] static std::optional<std::string> languageTag(std::string_view locale);

private:
    [[nodiscard]] std::string messageLocale() const;

    Environment environment_;
    Collation collation_;
    LetterCase letterCase_;
    TimeOfDay timeOfDay_;
};

}  // namespace vtx
