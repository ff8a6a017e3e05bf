// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace vtx::bench {

/// What one thread has used since it began.
struct ThreadCost {
    std::string name;
    /// From /proc/PID/task/TID/schedstat.
    std::chrono::nanoseconds cpu{};
    /// voluntary_ctxt_switches of /proc/PID/task/TID/status: each is a wait that a waking ended.
    std::uint64_t wakeUps = 0;
    std::uint64_t preemptions = 0;
};

/// What a process has used since it began.
struct CostReading {
    /// The process's CPU clock: threads that have ended are in it.
    std::chrono::nanoseconds cpu{};
    /// Those that are there now, by number.
    std::map<pid_t, ThreadCost> threads;
};

/// What a process used between two readings.
struct CostSpan {
    std::chrono::nanoseconds cpu{};
    std::uint64_t wakeUps = 0;
    std::uint64_t preemptions = 0;
    /// Threads of the first reading that are not in the second: their last wake-ups are not
    /// counted.
    std::size_t endedThreads = 0;
    std::map<pid_t, ThreadCost> threads;
};

/// What a process holds now.
struct Holding {
    /// From /proc/PID/smaps_rollup. A page shared by n processes counts as an nth in `pss`, not at
    /// all in `uss` and whole in `rss`.
    std::uint64_t pssKiB = 0;
    std::uint64_t ussKiB = 0;
    std::uint64_t rssKiB = 0;
    /// The part of `pss` that is no file's: other programs that come and go do not change it.
    std::uint64_t ownKiB = 0;
    std::size_t threads = 0;
    std::size_t descriptors = 0;
};

/// Each throws `std::runtime_error` for a process that has gone.
[[nodiscard]] CostReading readCost(pid_t process);
[[nodiscard]] Holding readHolding(pid_t process);

[[nodiscard]] CostSpan between(const CostReading& begin, const CostReading& end);

}  // namespace vtx::bench
