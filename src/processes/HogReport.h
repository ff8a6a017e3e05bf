// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Date.h"

namespace vtx {

/// One process of the user that has kept the processor busy for long without being in front. A
/// value; `pid` identifies it. Shares of the processor are fractions of one core.
struct HogReport {
    std::int32_t pid = 0;
    std::string name;
    std::optional<std::string> executablePath;
    /// Over the observations in which it was active.
    double averageCPU = 0.0;
    /// Over all of them.
    double peakCPU = 0.0;
    /// For how long it was active, within the window.
    double activeSeconds = 0.0;
    std::uint64_t residentMemoryBytes = 0;
    /// What it was when it was first reported, in its life.
    Date firstObserved;
    Date lastObserved;

    bool operator==(const HogReport&) const = default;
};

}  // namespace vtx
