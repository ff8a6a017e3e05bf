// SPDX-License-Identifier: MIT
#pragma once

#include "language/Language.h"
#include "language/TextTable.h"

/// All texts of the interface. Each table is built once, when it is first asked for, so that only
/// the languages in use take memory; it lasts for the run. Any thread.
namespace vtx::catalogue {

/// The texts of a language; null for one without texts, which `automatic` always is.
[[nodiscard]] const TextTable* table(Language language);

/// The one table that holds every key.
[[nodiscard]] const TextTable& english();

}  // namespace vtx::catalogue
