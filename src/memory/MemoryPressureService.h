// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/Date.h"
#include "base/Published.h"
#include "base/Subscription.h"
#include "base/UUID.h"
#include "base/WeakReference.h"
#include "memory/MemoryMonitor.h"
#include "processes/ProcessManager.h"

namespace vtx {

class HeapRelief;

/// Remembers how the pressure on memory changed, gives this program's own unused heap back when it
/// rises, and names the user's largest processes, which are the user's to quit: it touches none of
/// them. Lives on the main executor; made once at start and owned by the coordinator. Nothing of it
/// is stored.
class MemoryPressureService : public ObservableObject {
public:
    /// One change of level.
    struct Event {
        UUID id;
        Date timestamp;
        MemoryStats::Pressure from = MemoryStats::Pressure::normal;
        MemoryStats::Pressure to = MemoryStats::Pressure::normal;
        /// Of the memory in use then, 0.0 to 1.0; 0.0 where that is not known.
        double usedFraction = 0.0;

        bool operator==(const Event&) const = default;
    };

    static constexpr std::size_t eventLimit = 64;

    /// Attaches only where both are given. The ports and executors must outlive the service.
    MemoryPressureService(const Ports& ports, const Executors& executors,
                          MemoryMonitor* memory = nullptr, ProcessManager* processes = nullptr);

    /// From now on follows the pressure of this monitor. The level in force makes no event.
    void attach(MemoryMonitor& memory, ProcessManager& processes);

    /// Handles one level that was delivered; the present one again is nothing.
    void handlePressureChange(MemoryStats::Pressure level);

    /// Gives the own unused heap back. The bytes that this gave.
    std::int64_t relieveOwnProcess();

    /// At most `limit` of the user's own processes that are not the system's, largest first.
    [[nodiscard]] std::vector<ProcessSnapshot> suggestedCleanupTargets(std::size_t limit) const;

    /// Newest first, at most `eventLimit`.
    Published<std::vector<Event>> events{*this};
    /// Absent until the first relief.
    Published<std::optional<Date>> lastReliefAt{*this};
    Published<std::int64_t> lastReliefBytesFreed{*this, 0};
    /// Relieve when the level changes to another one than normal.
    Published<bool> autoRelieveOnPressure{*this, false};

private:
    [[nodiscard]] double usedFraction() const;

    HeapRelief& heap_;
    const Clock& clock_;
    Executor& main_;
    WeakReference<MemoryMonitor> memory_;
    WeakReference<ProcessManager> processes_;
    MemoryStats::Pressure lastSeenPressure_ = MemoryStats::Pressure::normal;
    Subscription pressureSubscription_;
};

}  // namespace vtx
