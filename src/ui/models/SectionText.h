// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "language/Localization.h"

namespace vtx {

/// The text of a key, as a model keeps it.
[[nodiscard]] inline std::string text(const Localization& texts, L10n::Key key) {
    return std::string(texts.string(key));
}

}  // namespace vtx
