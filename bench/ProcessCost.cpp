// SPDX-License-Identifier: MIT
#include "ProcessCost.h"

#include <fmt/format.h>
#include <time.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>

namespace vtx::bench {
namespace {

namespace fs = std::filesystem;

fs::path folderOf(pid_t process) { return fs::path("/proc") / std::to_string(process); }

[[noreturn]] void gone(pid_t process) {
    throw std::runtime_error(fmt::format("process {} has gone", process));
}

std::chrono::nanoseconds processClock(pid_t process) {
    clockid_t clock{};
    timespec used{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &used) != 0) {
        gone(process);
    }
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
}

/// The figures of a file of lines "Name: figure", the unit left out.
std::map<std::string, std::uint64_t> figuresOf(const fs::path& path) {
    std::map<std::string, std::uint64_t> figures;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const auto colon = line.find(':');
        if (colon == std::string::npos) continue;
        try {
            figures[line.substr(0, colon)] = std::stoull(line.substr(colon + 1));
        } catch (const std::logic_error&) {
            continue;  // a line of words
        }
    }
    return figures;
}

/// Absent for a thread that ended meanwhile.
std::optional<ThreadCost> readThread(const fs::path& folder) {
    ThreadCost cost;
    std::ifstream name(folder / "comm");
    std::ifstream schedule(folder / "schedstat");
    std::int64_t nanoseconds = 0;
    if (!std::getline(name, cost.name) || !(schedule >> nanoseconds)) return std::nullopt;
    const auto status = figuresOf(folder / "status");
    const auto wakeUps = status.find("voluntary_ctxt_switches");
    const auto preemptions = status.find("nonvoluntary_ctxt_switches");
    if (wakeUps == status.end() || preemptions == status.end()) return std::nullopt;
    cost.cpu = std::chrono::nanoseconds(nanoseconds);
    cost.wakeUps = wakeUps->second;
    cost.preemptions = preemptions->second;
    return cost;
}

std::size_t entryCount(const fs::path& folder) {
    std::error_code error;
    std::size_t count = 0;
    for (auto at = fs::directory_iterator(folder, error); !error && at != fs::directory_iterator();
         at.increment(error)) {
        ++count;
    }
    return count;
}

}  // namespace

CostReading readCost(pid_t process) {
    CostReading reading{processClock(process), {}};
    std::error_code error;
    auto at = fs::directory_iterator(folderOf(process) / "task", error);
    for (; !error && at != fs::directory_iterator(); at.increment(error)) {
        if (auto thread = readThread(at->path())) {
            reading.threads[std::stoi(at->path().filename())] = std::move(*thread);
        }
    }
    if (reading.threads.empty()) gone(process);
    return reading;
}

Holding readHolding(pid_t process) {
    const fs::path folder = folderOf(process);
    const auto memory = figuresOf(folder / "smaps_rollup");
    if (!memory.contains("Pss")) gone(process);
    return {memory.at("Pss"),
            memory.at("Private_Clean") + memory.at("Private_Dirty"),
            memory.at("Rss"),
            memory.at("Pss_Anon") + memory.at("Pss_Shmem"),
            entryCount(folder / "task"),
            entryCount(folder / "fd")};
}

CostSpan between(const CostReading& begin, const CostReading& end) {
    CostSpan span;
    span.cpu = end.cpu - begin.cpu;
    for (const auto& [number, now] : end.threads) {
        ThreadCost used = now;
        if (const auto before = begin.threads.find(number); before != begin.threads.end()) {
            used.cpu -= before->second.cpu;
            used.wakeUps -= before->second.wakeUps;
            used.preemptions -= before->second.preemptions;
        }
        span.wakeUps += used.wakeUps;
        span.preemptions += used.preemptions;
        span.threads[number] = std::move(used);
    }
    for (const auto& entry : begin.threads) span.endedThreads += !end.threads.contains(entry.first);
    return span;
}

}  // namespace vtx::bench
