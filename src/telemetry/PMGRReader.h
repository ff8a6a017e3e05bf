// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Property.h"

namespace vtx {

class IORegistry;

/// The clock tables of both clusters in MHz, each in the table's own order. At least one of them
/// has steps.
struct ClusterFrequencyTables {
    std::vector<double> performanceStepsMHz;
    std::vector<double> efficiencyStepsMHz;

    friend bool operator==(const ClusterFrequencyTables&, const ClusterFrequencyTables&) = default;
};

/// Finds and decodes the clock tables that the firmware keeps at the power manager, the node "pmgr"
/// among the devices. Keeps nothing; asked once, at start.
class PMGRReader {
public:
    /// Names of the two properties that hold the tables.
    struct ClusterKeys {
        std::string eKey;
        std::string pKey;

        friend bool operator==(const ClusterKeys&, const ClusterKeys&) = default;
    };

    PMGRReader() = delete;

    /// Absent where the machine has no such node or it holds no table.
    static std::optional<ClusterFrequencyTables> detectFrequencyTables(IORegistry& registry);

    /// Absent where there is no such node or it cannot be read.
    static std::optional<PropertyMap> pmgrProperties(IORegistry& registry);

    /// By "acc-clusters": the highest tier is the performance cluster, the next one the efficiency
    /// cluster. Absent where fewer than two clusters are listed.
    static std::optional<ClusterKeys> clusterKeys(const PropertyMap& from);

    /// The steps of one table in MHz, none if there is no such table. Entries are taken as they
    /// are: neither sorted nor filtered.
    static std::vector<double> decodeSteps(std::string_view key, const PropertyMap& in);
};

}  // namespace vtx
