// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Shared.h"
#include "language/Localization.h"
#include "platform/Locale.h"

namespace vtx::test {

/// The process's texts in one language, until the end of the scope. What is asked of it converts to
/// the texts themselves.
class SpokenIn {
public:
    explicit SpokenIn(Language language = Language::en) {
        Shared<Localization>::setFactory(
            [this] { return std::make_unique<Localization>(locale_); });
        Localization::shared().setPreference(language);
    }
    ~SpokenIn() { Shared<Localization>::reset(); }
    SpokenIn(const SpokenIn&) = delete;
    SpokenIn& operator=(const SpokenIn&) = delete;

    operator const Localization&() const {  // NOLINT(google-explicit-*)
        return Localization::shared();
    }

private:
    class Nowhere final : public Locale {
    public:
        [[nodiscard]] std::vector<std::string> preferredLanguages() const override { return {}; }
        [[nodiscard]] std::string collationKey(std::string_view text) const override {
            return std::string(text);
        }
        [[nodiscard]] std::string lowercased(std::string_view text) const override {
            return std::string(text);
        }
        [[nodiscard]] std::string timeOfDay(Date) const override { return {}; }
    };

    Nowhere locale_;
};

}  // namespace vtx::test
