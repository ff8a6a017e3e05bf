// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

namespace vtx {

class IORegistry;
class Sysctl;

enum class ClusterType { performance, efficiency };

/// The shape of the processor, detected once at start.
struct CoreLayout {
    /// Logical processors at performance level 0; all of them where the machine has no levels.
    int pCoreCount = 0;
    /// Logical processors at performance level 1; 0 where there is only one level.
    int eCoreCount = 0;
    /// Top clock of the performance cluster in MHz; absent where the machine does not tell.
    std::optional<double> pCoreMaxMHz;
    /// The same of the efficiency cluster; absent also where there is none.
    std::optional<double> eCoreMaxMHz;
    /// Clock tables in table order; empty where the machine lists no steps.
    std::vector<double> pCoreFrequencyStepsMHz;
    std::vector<double> eCoreFrequencyStepsMHz;
    /// Cluster of each processor by its number; empty where the machine does not tell.
    std::vector<ClusterType> clusterMap;

    friend bool operator==(const CoreLayout&, const CoreLayout&) = default;

    /// The layout of this machine, or absent where it tells no number of processors.
    static std::optional<CoreLayout> detect(Sysctl& sysctl, IORegistry& registry);

    /// Numbers of logical processors of each kind.
    struct Counts {
        int performance = 0;
        int efficiency = 0;
        int levels = 0;  ///< 0 where the kernel knows no performance levels
    };
    /// Absent where the machine tells no number of processors.
    static std::optional<Counts> detectCounts(Sysctl& sysctl);

    /// Top clock of a performance level in MHz by the kernel's own values.
    static std::optional<double> sysctlMaxMHz(Sysctl& sysctl, int perflevel);

    /// The cluster of each processor by the device tree; a number that the tree leaves out counts
    /// as performance. Empty where the tree tells nothing.
    static std::vector<ClusterType> detectCpuClusterMap(IORegistry& registry);
};

}  // namespace vtx
