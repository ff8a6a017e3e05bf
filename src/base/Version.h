// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vtx {

// Both texts end with a zero.

/// The program's version, such as "1.2.0".
[[nodiscard]] std::string_view programVersion();

/// Which build of it: the number of commits that led to its sources. Empty where they were no
/// checkout with its whole history.
[[nodiscard]] std::string_view programBuild();

}  // namespace vtx
