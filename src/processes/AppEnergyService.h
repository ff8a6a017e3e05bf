// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>

#include "base/Moment.h"
#include "processes/AppEnergyImpact.h"
#include "processes/ProcessSnapshot.h"

namespace vtx {

/// Scores what each process costs in energy, by what the kernel counted between two calls. Main
/// executor; made once at start and owned by the coordinator for the life of the process.
class AppEnergyService {
public:
    using Impacts = std::unordered_map<std::int32_t, AppEnergyImpact>;

    /// The ports must outlive the service.
    AppEnergyService(const ProcessTable& table, const Clock& clock);

    /// The scores by pid, without those processes whose counters cannot be read. Where there is no
    /// interval, or no counters of the process from the call before, its rates are 0.
    [[nodiscard]] Impacts compute(std::span<const ProcessSnapshot> snapshots);

private:
    [[nodiscard]] AppEnergyImpact impactOf(const RusageInfo& now, const RusageInfo& before,
                                           double elapsed) const;

    const ProcessTable& table_;
    const Clock& clock_;
    const MachTimebaseInfo timebase_;
    std::unordered_map<std::int32_t, RusageInfo> previousRusage_;
    std::optional<Moment> previousSampleAt_;
};

}  // namespace vtx
