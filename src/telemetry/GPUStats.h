// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Date.h"

namespace vtx {

/// One reading of the graphics processor: loads as fractions from 0.0 to 1.0.
struct GPUStats {
    double deviceUtilization = 0.0;
    /// Absent where the driver gives none, as the next one.
    std::optional<double> tilerUtilization;
    std::optional<double> rendererUtilization;
    Date timestamp;

    friend bool operator==(const GPUStats&, const GPUStats&) = default;
};

}  // namespace vtx
