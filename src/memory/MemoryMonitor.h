// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "base/Confined.h"
#include "base/Published.h"
#include "memory/MemoryMonitorEngine.h"

namespace vtx {

struct Executors;
class MemoryPressureSource;

/// Publishes the machine's memory with each refresh and, apart from that, the kernel's pressure
/// level the moment it changes. Lives on the main executor; made once at start and owned by the
/// composition root for the life of the process.
class MemoryMonitor : public ObservableObject {
public:
    /// Starts to follow the pressure at once. The ports and executors must outlive the monitor.
    MemoryMonitor(const Ports& ports, const Executors& executors);
    ~MemoryMonitor() override;

    /// Takes one reading and publishes it, if there is one. Never fails: a step that gives nothing
    /// leaves the last reading.
    Task<> refresh();

    /// Absent until a reading was taken; never absent again after that.
    Published<std::optional<MemoryStats>> latest{*this};

    /// The kernel's level, unaltered; normal until the kernel tells of the first change.
    Published<MemoryStats::Pressure> pressure{*this, MemoryStats::Pressure::normal};

private:
    void startPressureMonitoring(const Ports& ports, Executor& main);

    Confined<MemoryMonitorEngine> engine_;
    /// Null where the platform has none.
    std::unique_ptr<MemoryPressureSource> pressureSource_;
    /// What events under way find the monitor by: they hold it weakly.
    std::shared_ptr<MemoryMonitor*> self_ = std::make_shared<MemoryMonitor*>(this);
};

}  // namespace vtx
