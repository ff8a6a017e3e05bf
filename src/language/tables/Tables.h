// SPDX-License-Identifier: MIT
#pragma once

#include "language/TextTable.h"

/// The lists of each language, compiled in; one file per language.
namespace vtx::tables {

TextLists de();
TextLists en();
TextLists fr();
TextLists es();
TextLists it();
TextLists pt();
TextLists nl();
TextLists pl();
TextLists ja();
TextLists zh();
TextLists tr();
TextLists ru();
TextLists ko();

}  // namespace vtx::tables
