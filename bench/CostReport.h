// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "MachineFacts.h"
#include "ProcessCost.h"

namespace vtx::bench {

/// One program over one window of time.
struct CostRow {
    std::string name;
    CostSpan span;
    Holding holding;
};

/// The programs that were measured at the same time.
struct CostWindow {
    std::string title;
    std::chrono::duration<double> length{};
    /// Busy part of all processors, 0 to 1, whoever used them.
    std::optional<double> machineBusy;
    /// How often the strip showed something else; absent where none was seen.
    std::optional<std::size_t> stripChanges;
    std::vector<CostRow> rows;
};

/// From the click to the whole popover on the screen.
struct Openings {
    std::chrono::duration<double> first{};  ///< in the life of the process
    std::vector<std::chrono::duration<double>> later;
};

struct CostReport {
    MachineFacts machine;
    std::vector<CostWindow> windows;
    std::optional<Openings> openings;
    /// What could not be measured, and why.
    std::vector<std::string> leftOut;
};

enum class ThreadDetail { hidden, shown };

/// The report as aligned text.
[[nodiscard]] std::string table(const CostReport& report, ThreadDetail detail);

/// Throws `std::runtime_error` where the file cannot be written.
void saveJson(const CostReport& report, const std::filesystem::path& file);

}  // namespace vtx::bench
