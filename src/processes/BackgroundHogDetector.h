// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "base/Moment.h"
#include "base/Published.h"
#include "processes/HogReport.h"
#include "processes/ObservationWindow.h"
#include "processes/ProcessSnapshot.h"

namespace vtx {

class ProcessTable;
class Workspace;
struct Ports;

/// Finds the user's processes that have been busy for long while another application was in front.
/// Keeps what it observed within a window: at one observation in five seconds that is 361 of 24
/// bytes for each process, and nothing at all while it is disabled. Main executor; made once at
/// start and owned by the coordinator for the life of the process.
class BackgroundHogDetector : public ObservableObject {
public:
    struct Configuration {
        /// From this share of one core on an observation counts as active.
        double cpuThreshold = 0.15;
        /// From this active time on a process is reported.
        double minDurationSeconds = 300.0;
        /// How far back observations count.
        double windowSeconds = 1800.0;

        bool operator==(const Configuration&) const = default;
    };

    /// The ports must outlive the detector.
    explicit BackgroundHogDetector(const Ports& ports);

    /// Takes in the processes of all users as they are now and publishes who is a hog. While it is
    /// disabled it forgets what it has observed instead, and publishes only where that changes
    /// something.
    void observe(std::span<const ProcessSnapshot> snapshots);

    /// The longest active first.
    Published<std::vector<HogReport>> hogs{*this};
    /// Both are in force from the next `observe` on, the first one for what was observed before
    /// too.
    Published<Configuration> configuration{*this};
    Published<bool> isEnabled{*this, false};

private:
    /// In the order of the pids, so that hogs that were equally long active keep their order.
    using History = std::map<std::int32_t, ObservationWindow>;

    void forget();
    [[nodiscard]] std::vector<HogReport> look(std::span<const ProcessSnapshot> snapshots);
    [[nodiscard]] History::iterator drop(History::iterator gone);
    [[nodiscard]] std::optional<HogReport> reportOf(const ProcessSnapshot& process,
                                                    ObservationWindow& observed, const Moment& now);

    Workspace& workspace_;
    const ProcessTable& table_;
    const Clock& clock_;
    History history_;
    /// When a process was first reported. Kept while the detector is disabled.
    std::map<std::int32_t, Instant> firstNoticed_;
};

}  // namespace vtx
