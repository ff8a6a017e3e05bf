// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vtx {

/// The fixed texts of the page, the same in every language.
namespace processTexts {
inline constexpr std::string_view filter = "Filter";
inline constexpr std::string_view refresh = "Refresh now";
inline constexpr std::string_view name = "Name";
inline constexpr std::string_view cpu = "CPU";
inline constexpr std::string_view memory = "Mem";
inline constexpr std::string_view pid = "PID";
}  // namespace processTexts

/// What stands in the place of rows.
struct ProcessPlaceholderModel {
    std::string_view symbol;
    std::string text;

    bool operator==(const ProcessPlaceholderModel&) const = default;
};

/// The line below the list.
struct ProcessFooterModel {
    std::string count;
    /// Empty before the first sample.
    std::string updated;

    bool operator==(const ProcessFooterModel&) const = default;
};

/// What the page shows around its rows.
struct ProcessTabReadings {
    /// What the user typed, as it is.
    std::string_view search = {};
    std::size_t shown = 0;  ///< processes that match
    std::size_t total = 0;
    /// How old the list is; absent before the first.
    std::optional<double> secondsSinceRefresh = std::nullopt;
};

/// Only where no process is shown.
[[nodiscard]] std::optional<ProcessPlaceholderModel> describeProcessPlaceholder(
    const ProcessTabReadings& readings);
/// The age in the language in force.
[[nodiscard]] ProcessFooterModel describeProcessFooter(const ProcessTabReadings& readings);

}  // namespace vtx
