// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <functional>

#include "platform/simulated/SimulatedProcesses.h"
#include "support/CoordinatorBench.h"
#include "ui/models/PopoverSection.h"
#include "ui/support/Shown.h"

namespace vtx::test {

/// A coordinator whose readings a test sets itself, for surfaces to follow.
class SurfaceBench : public CoordinatorBench {
public:
    void readCPU(double total) {
        CPUStats stats;
        stats.totalUsage = total;
        stats.layout.pCoreCount = 4;
        stats.pCoreUsage = total;
        coordinator.cpu.latest = stats;
    }
    /// One reading of everything that the sections show.
    void readEverything() {
        readCPU(0.5);
        coordinator.gpu.latest = GPUStats{};
        coordinator.memory.latest = MemoryStats{};
        NetworkReading network;
        network.primary.emplace().bsdName = "en0";
        coordinator.network.latest = network;
        coordinator.diskIO.latest = DiskIOReading{};
        coordinator.fan.latest = FanStats{};
        coordinator.battery.refresh(31.0, false);
        coordinator.appendHistory({});
    }
    [[nodiscard]] bool isCPUFollowed() const { return coordinator.cpu.latest.hasSubscribers(); }
    /// Whether anything follows any reading, any history, the machine's description or the
    /// language.
    [[nodiscard]] bool isAnythingFollowed() const {
        const MetricsCoordinator& c = coordinator;
        const auto isFollowed = [](const auto&... values) {
            return (values.hasSubscribers() || ...);
        };
        return isFollowed(c.cpu.latest, c.gpu.latest, c.gpu.isAvailable, c.memory.latest,
                          c.thermal.latest, c.temperature.latest, c.network.latest,
                          c.battery.latest, c.processes.processes, c.systemInfo.info,
                          c.diskIO.latest, c.fan.latest, c.ane.latest, c.cpuHistory, c.pCoreHistory,
                          c.eCoreHistory, c.gpuHistory, c.memoryHistory, c.diskReadHistory,
                          c.diskWriteHistory, c.aneHistory, c.energyByPID, c.hogDetector.hogs,
                          c.hogDetector.isEnabled, Localization::shared().effective);
    }
    /// Replaces all processes by some of the user's, each named by the gigabytes that it takes.
    void runProcesses(std::initializer_list<int> gigabytes) {
        std::vector<ProcessSnapshot> running;
        for (const int each : gigabytes) {
            ProcessSnapshot one;
            one.name = std::to_string(each) + " GB";
            one.executablePath = "/Applications/one";
            one.uid = SimulatedProcesses::user;
            one.residentMemoryBytes = static_cast<std::uint64_t>(each) << 30;
            running.push_back(one);
        }
        coordinator.processes.processes = running;
    }
    /// Has every section offered that the machine has.
    void offerEverySection() {
        change([](auto& preferences) { preferences.showDiskIO = preferences.showFan = true; });
    }
    void tellMachine(const std::function<void(SystemInfo&)>& edit) {
        SystemInfo machine = *coordinator.systemInfo.info;
        edit(machine);
        coordinator.systemInfo.info = machine;
    }
};

/// Every section that the popover offers on a laptop with all of them shown.
inline constexpr PopoverSection everySection[] = {
    PopoverSection::overview, PopoverSection::cpu,     PopoverSection::gpu,
    PopoverSection::memory,   PopoverSection::disk,    PopoverSection::fan,
    PopoverSection::network,  PopoverSection::battery, PopoverSection::processes,
    PopoverSection::system,   PopoverSection::settings};

/// What a screen reader says of the element itself.
inline QString spokenName(QAccessibleInterface& element) { return element.text(QAccessible::Name); }

/// The first element below `from` with that name, or null.
inline QAccessibleInterface* spokenAs(QAccessibleInterface* from, const QString& name) {
    if (!from || spokenName(*from) == name) return from;
    for (int i = 0; i < from->childCount(); ++i)
        if (auto* found = spokenAs(from->child(i), name)) return found;
    return nullptr;
}

inline QAccessibleInterface* spokenAs(QWidget& from, const char* name) {
    return spokenAs(QAccessible::queryAccessibleInterface(&from), QString::fromUtf8(name));
}

}  // namespace vtx::test
