// SPDX-License-Identifier: MIT
#include "memory/MemoryPressureService.h"

#include <algorithm>
#include <utility>

#include "base/Clock.h"
#include "base/Executors.h"
#include "base/Log.h"
#include "platform/HeapRelief.h"
#include "platform/Ports.h"

namespace vtx {
namespace {

using Pressure = MemoryStats::Pressure;

constexpr Logger logger{"MemoryPressureService"};

}  // namespace

MemoryPressureService::MemoryPressureService(const Ports& ports, const Executors& executors,
                                             MemoryMonitor* memory, ProcessManager* processes)
    : heap_(ports.heapRelief), clock_(ports.clock), main_(executors.main) {
    if (memory && processes) attach(*memory, *processes);
}

void MemoryPressureService::attach(MemoryMonitor& memory, ProcessManager& processes) {
    memory_ = WeakReference(memory);
    processes_ = WeakReference(processes);
    lastSeenPressure_ = *memory.pressure;
    const auto changes = deliverOn(dropFirst(memory.pressure.stream()), main_);
    pressureSubscription_ = changes([this](Pressure level) { handlePressureChange(level); });
}

void MemoryPressureService::handlePressureChange(Pressure level) {
    if (level == lastSeenPressure_) return;
    const Event event{UUID::random(), clock_.now(), std::exchange(lastSeenPressure_, level), level,
                      usedFraction()};
    events.modify([&event](std::vector<Event>& all) {
        all.insert(all.begin(), event);
        if (all.size() > eventLimit) all.resize(eventLimit);
    });
    logger.standard("pressure {} → {} at used={}%", rawValue(event.from), rawValue(event.to),
                    static_cast<int>(event.usedFraction * 100.0));
    if (*autoRelieveOnPressure && level != Pressure::normal) relieveOwnProcess();
}

std::int64_t MemoryPressureService::relieveOwnProcess() {
    const std::int64_t bytes = heap_.mallocZonePressureRelief();
    lastReliefAt = clock_.now();
    lastReliefBytesFreed = bytes;
    logger.info("self pressure relief: ~{} bytes", bytes);
    return bytes;
}

std::vector<ProcessSnapshot> MemoryPressureService::suggestedCleanupTargets(
    std::size_t limit) const {
    const ProcessManager* const manager = processes_.get();
    if (!manager) return {};
    std::vector<const ProcessSnapshot*> own;
    for (const auto& process : *manager->processes)
        if (manager->isOwnSoftware(process)) own.push_back(&process);
    const auto end = own.begin() + static_cast<std::ptrdiff_t>(std::min(own.size(), limit));
    // Equals keep their order, which is that of their places in the list.
    std::ranges::partial_sort(own, end, [](const auto* a, const auto* b) {
        return a->residentMemoryBytes != b->residentMemoryBytes
                   ? a->residentMemoryBytes > b->residentMemoryBytes
                   : a < b;
    });
    own.erase(end, own.end());
    std::vector<ProcessSnapshot> largest;
    largest.reserve(own.size());
    for (const auto* process : own) largest.push_back(*process);
    return largest;
}

double MemoryPressureService::usedFraction() const {
    const MemoryMonitor* const monitor = memory_.get();
    if (!monitor || !*monitor->latest) return 0.0;
    return (*monitor->latest)->usedFraction();
}

}  // namespace vtx
