// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "processes/HogReport.h"

namespace vtx {

/// How much a hog deserves attention; each has a symbol of its own too.
enum class HogSeverity { slight, notable, severe };

/// One reported process.
struct HogRowModel {
    HogSeverity severity = HogSeverity::slight;
    std::string name;
    /// For how long and how much at most.
    std::string subtitle;
    std::string average;

    bool operator==(const HogRowModel&) const = default;
};

/// The panel above the list.
struct HogPanelModel {
    std::string title;
    /// How many are reported; empty where none is.
    std::string count;
    std::vector<HogRowModel> rows;
    /// What stands in the place of rows.
    std::string hint;

    bool operator==(const HogPanelModel&) const = default;
};

[[nodiscard]] HogSeverity severityOf(const HogReport& report);
[[nodiscard]] std::string hogSubtitle(const HogReport& report);
/// In the language in force.
[[nodiscard]] HogPanelModel describeHogPanel(bool isDetectorEnabled,
                                             const std::vector<HogReport>& hogs);

/// The severity's sign.
[[nodiscard]] std::string_view symbolOf(HogSeverity severity);

}  // namespace vtx
