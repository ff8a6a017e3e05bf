// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Date.h"

namespace vtx {

/// The mean clocks of both clusters while their cores ran, over one interval.
struct ClusterClockSample {
    /// In MHz; absent where no core of the cluster ran, or its clock table is not known.
    std::optional<double> pCoreMHz;
    std::optional<double> eCoreMHz;
    Date timestamp;

    friend bool operator==(const ClusterClockSample&, const ClusterClockSample&) = default;
};

}  // namespace vtx
