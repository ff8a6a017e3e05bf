// SPDX-License-Identifier: MIT
// What an eventful machine is busy with: its cores, its memory, its processes.
#include <fmt/format.h>

#include <array>
#include <cmath>

#include "support/EventfulMachine.h"

namespace vtx {
namespace {

constexpr std::size_t mostProcesses = 40;

}  // namespace

void EventfulMachine::pressureChanges() {
    bench_.mac.memory.setPressure(static_cast<std::uint32_t>(upTo(8)));
}

void EventfulMachine::heatChanges() {
    bench_.mac.thermals.setAmbientC(-10.0 + 60.0 * part());
    bench_.mac.setThermalState(static_cast<std::int64_t>(upTo(6)) - 1);
}

void EventfulMachine::loadChanges() {
    auto& processors = bench_.mac.processors;
    switch (upTo(3)) {
        case 0:
            bench_.mac.live(random_());
            break;
        case 1:
            processors.setLoadOfAll({.user = 1.0});
            break;
        case 2:
            processors.setLoadOfAll({});
            break;
        default:
            processors.setLoad(upTo(processors.shape().cores.size() - 1),
                               {.user = part(), .system = part(), .nice = part()});
    }
}

void EventfulMachine::coresChange() {
    auto& processors = bench_.mac.processors;
    const std::size_t all = processors.shape().cores.size();
    if (oneIn(2)) return processors.setOnline(upTo(all - 1), oneIn(2));
    processors.setProcessorCount(oneIn(2) ? all : 1 + upTo(all - 1));
}

void EventfulMachine::ticksWrap() {
    constexpr std::uint32_t near = 0xffff'ff00U;
    bench_.mac.processors.setTicks({near, near, near, near});
}

void EventfulMachine::graphicsChange() {
    auto& registry = bench_.mac.registry;
    const auto there = bench_.mac.accelerators();
    switch (upTo(3)) {
        case 0:
            for (const Node each : there) registry.remove(each);
            break;
        case 1:
            if (there.size() < 3) bench_.mac.addAccelerator();
            break;
        case 2:
            if (there.empty()) break;
            registry.set(there.front(), "PerformanceStatistics",
                         PropertyMap{{"Device Utilization %", std::int64_t{oneIn(2) ? -250 : 250}},
                                     {"Tiler Utilization %", std::nan("")},
                                     {"Renderer Utilization %", std::string("much")}});
            break;
        default:
            bench_.mac.graphics.setLoad({part(), part(), part()});
    }
}

void EventfulMachine::memoryChanges() {
    if (oneIn(2)) return bench_.mac.memory.live(random_());
    const auto all = SimulatedMemory::totalBytes / SimulatedMemory::pageSize;
    VMPageCounts pages;
    pages.active = upTo(all / 4);
    pages.wired = upTo(all / 4);
    pages.compressor = upTo(all / 4);
    pages.inactive = upTo(all / 8);
    pages.speculative = upTo(all / 16);
    pages.free = upTo(all / 16);
    bench_.mac.memory.setPages(pages);
    const std::uint64_t swap = upTo(std::uint64_t{1} << 36);
    bench_.mac.memory.setSwap(swap, upTo(swap));
}

void EventfulMachine::processComes() {
    if (processes_.size() >= mostProcesses) return processGoes();
    SimulatedProcess process;
    // A number may come again, as another process.
    const bool isNumberUsed = oneIn(3) && !processes_.empty();
    process.pid = isNumberUsed ? processes_.front() : nextPid_++;
    if (bench_.mac.processes.find(process.pid)) bench_.mac.processes.remove(process.pid);
    std::erase(processes_, process.pid);
    process.uid = oneIn(2) ? SimulatedProcesses::user : 0;
    process.name = oneIn(6) ? "\xff\xfe" : fmt::format("worker {}", process.pid);
    if (!oneIn(4)) process.path = fmt::format("/Applications/Worker {}.app/worker", process.pid);
    process.residentBytes = upTo(std::uint64_t{1} << 33);
    process.load = oneIn(3) ? part() : 0.0;
    // One that has run for ever begins anew; none does in the place of another.
    process.cpuNanoseconds = !isNumberUsed && oneIn(5) ? ~0ULL - 1000 : 0;
    process.startTime = oneIn(2) ? std::optional<ProcessStartTime>(steps_) : std::nullopt;
    process.refusesName = oneIn(8);
    process.refusesTaskInfo = oneIn(8);
    process.refusesRusage = oneIn(8);
    process.priorityError = oneIn(8) ? 3 : 0;
    processes_.push_back(process.pid);
    bench_.mac.processes.add(std::move(process));
}

void EventfulMachine::processGoes() {
    if (processes_.empty()) return;
    const std::int32_t pid = oneOf(processes_);
    bench_.mac.processes.remove(pid);
    std::erase(processes_, pid);
}

}  // namespace vtx
