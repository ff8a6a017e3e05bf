// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CostReport.h"

namespace vtx::bench {

/// What the command line asks for.
struct Options {
    /// Length of a window of time.
    int seconds = 60;
    /// Seconds that pass before a window.
    int settle = 5;
    std::optional<std::filesystem::path> json;
    ThreadDetail threads = ThreadDetail::hidden;
    /// Only where every sensor is there.
    bool everySensorAlone = false;
    /// Further programs, each with its arguments and variables.
    std::vector<std::string> commands;
    bool help = false;
};

[[nodiscard]] std::string_view usage();

/// Throws `std::runtime_error`, saying what is not understood.
[[nodiscard]] Options parse(const std::vector<std::string>& arguments);

}  // namespace vtx::bench
