// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "language/Language.h"

namespace vtx {

/// How long ago something was, in whole seconds, minutes, hours or days: "2 minutes ago". Less than
/// a second, what lies ahead and what is no number read "just now". `automatic` counts as English.
[[nodiscard]] std::string timeAgo(double seconds, Language language);

}  // namespace vtx
