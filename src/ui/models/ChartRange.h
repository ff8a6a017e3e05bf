// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "core/DisplayPreferences.h"

namespace vtx {

/// The heading above charts of that window. The first is in the language in force, the others are
/// English in every language.
[[nodiscard]] std::string historyTitle(DisplayPreferences::HistoryRange range);

/// What the control that picks the window calls it: "60s", "5m", "15m", "1h".
[[nodiscard]] std::string_view historyLabel(DisplayPreferences::HistoryRange range);

/// What stands in the place of a chart that has no points yet, in the language in force.
[[nodiscard]] std::string collectingText();

}  // namespace vtx
