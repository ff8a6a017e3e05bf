// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedProcessTable.h"

#include <algorithm>
#include <system_error>

#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

constexpr int valueOf(std::errc error) { return static_cast<int>(error); }

ProcTaskInfo taskInfoOf(const SimulatedProcess& process) {
    constexpr auto timebase = SimulatedProcessTable::timebase;
    const std::uint64_t units =
        process.cpuNanoseconds / timebase.numer * timebase.denom +
        process.cpuNanoseconds % timebase.numer * timebase.denom / timebase.numer;
    return {process.residentBytes, units - units / 4, units / 4, process.threads};
}

}  // namespace

int SimulatedProcessTable::kernProcAll(std::span<KinfoProc> into, std::size_t& bytes) {
    const bool isSizing = into.empty();
    const auto operation = isSizing ? operations::kernProcAllSize : operations::kernProcAllFill;
    if (const auto failure = instruments_.enter(operation)) return *failure;
    if (!isSizing) return fill(into, bytes);
    bytes = processes_.count() * kinfoProcBytes;
    return 0;
}

int SimulatedProcessTable::fill(std::span<KinfoProc> into, std::size_t& bytes) {
    listed_ = processes_.all();
    next_ = 0;
    if (listed_.size() > into.size()) return valueOf(std::errc::not_enough_memory);
    std::ranges::transform(listed_, into.begin(), [](const SimulatedProcess& process) {
        return KinfoProc{process.pid, process.uid};
    });
    bytes = listed_.size() * kinfoProcBytes;
    // The last record is cut, a byte of it is missing.
    if (instruments_.failures.take(operations::kernProcAllShort)) --bytes;
    return 0;
}

ProcessDetails SimulatedProcessTable::details(std::int32_t pid) {
    instruments_.counter.count(operations::processDetails);
    ProcessDetails details;
    auto found = std::find_if(listed_.begin() + static_cast<std::ptrdiff_t>(next_), listed_.end(),
                              [pid](const auto& process) { return process.pid == pid; });
    if (found == listed_.end()) found = std::ranges::find(listed_, pid, &SimulatedProcess::pid);
    if (found == listed_.end()) {
        details.priorityError = valueOf(std::errc::no_such_process);
        return details;
    }
    next_ = static_cast<std::size_t>(found - listed_.begin()) + 1;
    answered_ = *found;
    if (!answered_.refusesName) details.name = answered_.name;
    if (!answered_.path.empty()) details.path = answered_.path;
    if (!answered_.refusesTaskInfo) {
        details.taskInfoBytes = procTaskInfoBytes;
        details.taskInfo = taskInfoOf(answered_);
    }
    details.priorityError = answered_.priorityError;
    details.priority = answered_.priorityError != 0 ? -1 : answered_.nice;
    details.startTime = answered_.startTime;
    details.isSystemSoftware = answered_.isSystemSoftware;
    return details;
}

int SimulatedProcessTable::procPidRusage(std::int32_t pid, RusageInfo& info) const {
    if (const auto failure = instruments_.enter(operations::procPidRusage)) return *failure;
    const auto process = processes_.find(pid);
    if (!process) return valueOf(std::errc::no_such_process);
    if (process->refusesRusage) return valueOf(std::errc::operation_not_permitted);
    const ProcTaskInfo task = taskInfoOf(*process);
    info = {task.totalUser, task.totalSystem, process->pkgIdleWakeups, process->interruptWakeups,
            process->billedEnergy};
    return 0;
}

void SimulatedProcessTable::letGo() {
    instruments_.counter.count(operations::processesLetGo);
    listed_.clear();
    next_ = 0;
}

int SimulatedProcessTable::setpriority(std::int32_t pid, std::optional<ProcessStartTime> start,
                                       std::int32_t nice) {
    if (const auto failure = instruments_.enter(operations::setpriority)) return *failure;
    const auto process = processes_.find(pid);
    if (!process || (start && process->startTime && *start != *process->startTime))
        return valueOf(std::errc::no_such_process);
    if (process->uid != getuid()) return valueOf(std::errc::operation_not_permitted);
    if (nice < process->nice) return valueOf(std::errc::permission_denied);
    processes_.change(pid, [nice](SimulatedProcess& changed) { changed.nice = nice; });
    return 0;
}

}  // namespace vtx
