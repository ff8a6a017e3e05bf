// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "language/Language.h"
#include "language/TextTable.h"

namespace vtx {

/// A platform's own words, laid over the catalogue: the few texts of a language that read otherwise
/// there. Each lasts for the run, stands once, and keeps the placeholders of the text it replaces.
/// Null where the platform says everything as the catalogue does.
using PlatformWording = std::span<const TextEntry> (*)(Language language);

}  // namespace vtx
