// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "ui/kit/Color.h"

namespace vtx {

/// Where the theme learns whether the desktop is light or dark. Main thread; the theme owns it.
class AppearanceSource {
public:
    AppearanceSource() = default;
    AppearanceSource(const AppearanceSource&) = delete;
    AppearanceSource& operator=(const AppearanceSource&) = delete;
    virtual ~AppearanceSource() = default;

    [[nodiscard]] virtual Appearance appearance() const = 0;

    /// Called by the source after its appearance changed. Set once by the theme.
    std::function<void()> changed;
};

}  // namespace vtx
