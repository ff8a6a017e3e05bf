// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <vector>

namespace vtx::bench {

/// Processes that do nothing, begun here and ended when this goes, one by one by their numbers.
class SleepingProcesses {
public:
    /// Throws `std::system_error` where the system begins no more. They end with the calling thread
    /// at the latest.
    explicit SleepingProcesses(int count);
    ~SleepingProcesses();
    SleepingProcesses(const SleepingProcesses&) = delete;
    SleepingProcesses& operator=(const SleepingProcesses&) = delete;

private:
    void end();

    std::vector<pid_t> processes_;
};

}  // namespace vtx::bench
