// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "ProcessCost.h"

namespace vtx::bench {

/// What the program held at one moment of the soak.
struct SoakSample {
    std::chrono::duration<double> at{};  ///< since the start of the walk
    /// No surface was open, nor had been for long enough that what it used was given back.
    bool isCalm = false;
    Holding holding;
    /// What the X server held for all its programs; absent where it cannot be told.
    std::optional<Holding> server;
};

struct SoakReport {
    std::uint64_t seed = 0;
    std::chrono::duration<double> length{};
    std::size_t steps = 0;
    std::size_t repeats = 0;
    std::map<std::string, std::size_t> uses;
    std::vector<SoakSample> samples;
    /// How often the strip showed something else at the end, and in how long.
    std::size_t stripChanges = 0;
    std::chrono::duration<double> stripWatched{};
    /// Whether the program ended as it was asked to.
    bool hasEndedInOrder = false;
};

/// The report as aligned text: the soak in sixths.
[[nodiscard]] std::string table(const SoakReport& report);

/// What is not as it is to be, in words; nothing where all is well. The first sixth is for coming
/// to rest. The calm samples of the last sixth are held against those of the second: the medians of
/// the resident memory and of what no file holds may be a MiB greater, those of descriptors and of
/// threads not at all. Shared pages count whole in that, since the proportional size changes with
/// every other program that has the same libraries. What the X server holds may be four MiB more.
[[nodiscard]] std::vector<std::string> complaints(const SoakReport& report);

/// A line for each sample. Throws `std::runtime_error` where the file cannot be written.
void saveCsv(const SoakReport& report, const std::filesystem::path& file);

}  // namespace vtx::bench
