// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Date.h"

namespace vtx {

/// One reading of the Neural Engine. What no source tells is absent.
struct ANEReading {
    std::optional<double> utilization;  ///< fraction from 0.0 to 1.0
    std::optional<double> watts;
    std::optional<int> activeJobs;
    Date timestamp;

    friend bool operator==(const ANEReading&, const ANEReading&) = default;

    /// The process's one reading without any value; its time is that of its first use. Main
    /// executor.
    static const ANEReading& empty();
};

}  // namespace vtx
