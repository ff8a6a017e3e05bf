// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace vtx::bench {

/// What one benchmark found, by name, for another one to show.
using Figures = std::map<std::string, double, std::less<>>;

namespace figureNames {
/// The port calls of a pass, as a multiple of kept-open reads of the same figures.
constexpr auto systemPart = "systemPartOverReads";
/// Listing a process and reading it, as a multiple of one read of its stat file, kept open.
constexpr auto processRead = "processOverRead";
/// Describing and drawing an hour of noise, in milliseconds: the slowest of all styles.
constexpr auto hourChart = "hourChartMilliseconds";
}  // namespace figureNames

/// Both throw `std::runtime_error`, naming the file.
void saveFigures(const Figures& figures, const std::filesystem::path& file);
[[nodiscard]] Figures loadFigures(const std::filesystem::path& file);

}  // namespace vtx::bench
