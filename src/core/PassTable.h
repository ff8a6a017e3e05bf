// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>

#include "base/Task.h"
#include "core/MetricsCoordinator.h"

namespace vtx {

/// When in a pass a sampler runs.
enum class PassPhase {
    concurrent,  ///< started first, awaited last: works on an engine meanwhile
    main,        ///< on the main executor, in the order of the table
    activeOnly   ///< after those, only while the mode is `active` at that moment
};

/// One sampler of the pass. A new sampler is one more row, in its place.
struct PassRow {
    const char* name;
    PassPhase phase;
    /// Whether this pass samples it; read before anything starts. Null for always.
    bool (*isNeeded)(const MetricsCoordinator&);
    /// Concurrent samplers have this one.
    Task<> (*refresh)(MetricsCoordinator&);
    /// All others have this one.
    void (*refreshNow)(MetricsCoordinator&);
};

/// The samplers in the order of the pass.
std::span<const PassRow> passTable();

}  // namespace vtx
