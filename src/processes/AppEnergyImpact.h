// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

/// What one process costs in energy, as one number made of several. A value.
struct AppEnergyImpact {
    /// The sum of all terms.
    double score = 0.0;
    /// Percent of one core: 100 is one core busy for the whole interval.
    double cpuComponent = 0.0;
    /// 5 for a process that the kernel has billed any energy so far, 0 for others.
    double gpuComponent = 0.0;
    /// Times a second that it woke the package from idling.
    double wakeupsPerSecond = 0.0;
    /// Reserved: never set.
    bool isInAppNap = false;

    bool operator==(const AppEnergyImpact&) const = default;
};

}  // namespace vtx
