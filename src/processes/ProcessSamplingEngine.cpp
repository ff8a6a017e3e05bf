// SPDX-License-Identifier: MIT
#include "processes/ProcessSamplingEngine.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "base/Log.h"
#include "base/Utf8.h"
#include "processes/MachTime.h"

namespace vtx {
namespace {

constexpr Logger logger{"ProcessSamplingEngine"};

/// For processes that begin between the two calls.
constexpr std::size_t headroom = 16;
constexpr int attempts = 3;
constexpr double nanosecondsPerSecond = 1e9;
/// Over so many units of processor time a share is off by two percent of a core at most.
constexpr std::uint64_t leastUnits = 50;

std::string textOf(std::string_view bytes) {
    return repairedUtf8(bytes.substr(0, bytes.find('\0')));
}

std::optional<std::string> pathOf(const ProcessDetails& details) {
    if (!details.path) return std::nullopt;
    return textOf(*details.path);
}

std::string nameOf(const ProcessDetails& details, const std::optional<std::string>& path) {
    if (details.name) return textOf(*details.name);
    return path ? path->substr(path->rfind('/') + 1) : std::string();
}

}  // namespace

ProcessSamplingEngine::ProcessSamplingEngine(ProcessTable& table, const Clock& clock)
    : table_(table), clock_(clock), timebase_(table.machTimebaseInfo()) {}

std::optional<std::span<const KinfoProc>> ProcessSamplingEngine::fetchAllProcs() {
    constexpr int noMemory = static_cast<int>(std::errc::not_enough_memory);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        std::size_t bytes = 0;
        if (const int error = table_.kernProcAll({}, bytes)) {
            logger.error("sysctl(KERN_PROC_ALL) sizing call failed: errno={} attempt={}", error,
                         attempt);
            return std::nullopt;
        }
        records_.assign(bytes / kinfoProcBytes + headroom, {});
        bytes = records_.size() * kinfoProcBytes;
        const int error = table_.kernProcAll(records_, bytes);
        if (error == 0)
            return std::span(records_).first(std::min(records_.size(), bytes / kinfoProcBytes));
        if (error != noMemory) {
            logger.error("sysctl(KERN_PROC_ALL) fill call failed: errno={} attempt={}", error,
                         attempt);
            return std::nullopt;
        }
    }
    logger.error("sysctl(KERN_PROC_ALL) gave up after 3 ENOMEM retries");
    return std::nullopt;
}

std::vector<ProcessSnapshot> ProcessSamplingEngine::snapshot() {
    const Moment now(clock_);
    const double shortest =
        static_cast<double>(nanoseconds(leastUnits, timebase_)) / nanosecondsPerSecond;
    const double sincePrevious = previous_.secondsUntil(now);
    const bool isTooSoon = sincePrevious > 0.0 && sincePrevious < shortest;
    Baseline& before = isTooSoon ? beforePrevious_ : previous_;
    const double elapsed = before.secondsUntil(now);
    const auto records = fetchAllProcs();
    if (!records) {
        logger.error("sysctl(KERN_PROC_ALL) returned no data");
        return {};
    }
    CPUTotals totals;
    totals.reserve(records->size());
    std::vector<ProcessSnapshot> all;
    all.reserve(records->size());
    for (const KinfoProc& record : *records)
        if (record.pid >= 1) all.push_back(read(record, before, elapsed, totals));
    if (isTooSoon) return all;
    totals.arrange();
    beforePrevious_ = std::exchange(previous_, {std::move(totals), now});
    return all;
}

bool ProcessSamplingEngine::rest() {
    std::vector<KinfoProc>().swap(records_);
    beforePrevious_ = {};
    table_.letGo();
    return true;
}

ProcessSnapshot ProcessSamplingEngine::read(const KinfoProc& record, Baseline& baseline,
                                            double elapsed, CPUTotals& totals) {
    const ProcessDetails details = table_.details(record.pid);
    ProcessSnapshot process;
    process.pid = record.pid;
    process.uid = record.uid;
    process.executablePath = pathOf(details);
    process.name = nameOf(details, process.executablePath);
    if (details.taskInfoBytes == procTaskInfoBytes) {
        const ProcTaskInfo& task = details.taskInfo;
        const std::uint64_t total = nanoseconds(task.totalUser + task.totalSystem, timebase_);
        totals.add(record.pid, total);
        const auto before = baseline.totalCPUNanos.find(record.pid);
        if (before && elapsed > 0.0 && total >= *before)
            process.cpuPercent =
                static_cast<double>(total - *before) / nanosecondsPerSecond / elapsed;
        process.residentMemoryBytes = task.residentSize;
        process.threadCount = task.threadNum;
    }
    // -1 without an error is a niceness like any other.
    const bool isRefused = details.priority == -1 && details.priorityError != 0;
    process.nice = isRefused ? 0 : details.priority;
    process.isSystemSoftware = details.isSystemSoftware;
    process.startTime = details.startTime;
    return process;
}

}  // namespace vtx
