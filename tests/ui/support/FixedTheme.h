// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/kit/PaletteAppearanceSource.h"
#include "ui/kit/Theme.h"

namespace vtx::test {

/// The application's theme in one appearance, until the end of the scope.
class FixedTheme {
public:
    explicit FixedTheme(Appearance appearance) {
        auto source = std::make_unique<FixedAppearanceSource>(appearance);
        source_ = source.get();
        Theme::current().follow(std::move(source));
    }
    ~FixedTheme() { Theme::current().follow(std::make_unique<PaletteAppearanceSource>()); }
    FixedTheme(const FixedTheme&) = delete;
    FixedTheme& operator=(const FixedTheme&) = delete;

    void set(Appearance appearance) { source_->set(appearance); }

private:
    FixedAppearanceSource* source_;
};

}  // namespace vtx::test
