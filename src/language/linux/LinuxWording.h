// SPDX-License-Identifier: MIT
#pragma once

#include "language/PlatformWording.h"

namespace vtx {

/// What Linux says where the catalogue speaks of the Mac, of its system or of its libraries: a
/// `PlatformWording`, for every language that has a text for the key. One name stays, that of the
/// chips, since the machine itself tells it.
[[nodiscard]] std::span<const TextEntry> linuxWording(Language language);

}  // namespace vtx
