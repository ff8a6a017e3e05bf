// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace vtx {

class SessionInstance;
struct LaunchOptions;

/// Makes this start the session's only one, or hands it over to the one that runs: the exit code
/// then, with a complaint on standard error where that one does not answer. A start that only takes
/// pictures is none that others would find.
[[nodiscard]] std::optional<int> handOverToFirst(SessionInstance& instance,
                                                 const LaunchOptions& options);

}  // namespace vtx
