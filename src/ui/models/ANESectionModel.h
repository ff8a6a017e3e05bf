// SPDX-License-Identifier: MIT
#pragma once

#include "ui/models/SectionParts.h"

namespace vtx {

class Localization;

/// What the page of the Neural Engine says: that nothing tells its load.
[[nodiscard]] PlaceholderModel describeANESection(const Localization& texts);

}  // namespace vtx
