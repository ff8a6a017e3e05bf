// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vtx {

/// What the session manager says of a process by the group that it put it in.
enum class ControlGroupRole {
    application,  ///< something that the user started
    service,      ///< a service of the user's session: it may be the desktop's or the user's
    system,       ///< the session itself, or the machine's
    unknown,      ///< no such groups
};

/// The path that /proc/PID/cgroup gives: of the unified hierarchy, or of the session manager's own
/// where that one says nothing. Empty where neither does. The view lives as long as the text.
[[nodiscard]] std::string_view controlGroupPath(std::string_view text);

[[nodiscard]] ControlGroupRole controlGroupRole(std::string_view path);

}  // namespace vtx
