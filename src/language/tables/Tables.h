// SPDX-License-Identifier: MIT
#pragma once

#include "language/TextTable.h"

/// The lists of each language, compiled in; one file per language.
namespace vtx::tables {

TextLists en();

}  // namespace vtx::tables
