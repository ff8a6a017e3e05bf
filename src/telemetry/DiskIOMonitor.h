// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/Moment.h"
#include "base/Published.h"
#include "platform/RegistryObject.h"
#include "telemetry/DiskIOReading.h"

namespace vtx {

class IORegistry;

/// Publishes what the drives read and write, by the counters that their drivers keep in the
/// registry. Lives on the main executor; made once at start and owned by the composition root for
/// the life of the process. Logs nothing: a drive that tells nothing is not in the list.
class DiskIOMonitor : public ObservableObject {
public:
    /// The ports must outlive the monitor.
    DiskIOMonitor(IORegistry& registry, const Clock& clock) : registry_(registry), clock_(clock) {}

    /// Reads all drives and publishes them, with rates from the second time on.
    void refresh();

    /// Absent before the first refresh; never absent again after that.
    Published<std::optional<DiskIOReading>> latest{*this};

    /// Every drive that tells its statistics; empty where the search fails.
    [[nodiscard]] std::vector<DiskIOSnapshot> collectVolumes();
    /// One drive; absent without statistics.
    [[nodiscard]] std::optional<DiskIOSnapshot> readSnapshot(const RegistryEntry& from);
    /// The first child that has a device's name.
    [[nodiscard]] std::optional<std::string> bsdNameFromChildren(const RegistryEntry& of);
    /// The product's name as the entry or one of the next five above it knows it.
    [[nodiscard]] std::optional<std::string> productName(const RegistryEntry& ofAncestorOf);

private:
    struct Names {
        std::string name;
        std::optional<std::string> bsdDevice;
    };

    [[nodiscard]] Names names(const RegistryEntry& of);
    [[nodiscard]] Names resolveNames(const RegistryEntry& of);

    IORegistry& registry_;
    const Clock& clock_;
    DiskIOTotals previousTotals_;
    DiskIOTotals totals_;  ///< of this refresh; kept for its memory
    std::optional<Moment> previousSampleAt_;
    /// By registry entry ID, which is never given twice. The walks for names are the costly part.
    std::map<std::uint64_t, Names> nameCache_;
    std::size_t drives_ = 0;  ///< at the last refresh
};

}  // namespace vtx
