// SPDX-License-Identifier: MIT
#pragma once

#include "ui/models/DialogModel.h"

namespace vtx {

struct UpdateAnswer;

/// What the user is told after a look for updates; the same in every language.
[[nodiscard]] DialogModel describeUpdate(const UpdateAnswer& answer);

/// While it looks.
inline constexpr std::string_view checkingForUpdates = "Looking for updates …";

}  // namespace vtx
