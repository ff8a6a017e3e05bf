// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/linux/ControlGroup.h"

namespace vtx {

/// Whether a process of the user is part of the system: what the desktop and its session consist
/// of, as opposed to what the user runs in it. On this system nearly all programs lie in the same
/// folder, so a path alone does not tell. The group decides where it can; else what lies in folders
/// that no user starts programs from is the system's, and so are the desktop's own programs by
/// name. `name` is the process's own, `path` its executable's.
[[nodiscard]] bool isSystemSoftware(ControlGroupRole role, std::string_view name,
                                    std::string_view path);

}  // namespace vtx
