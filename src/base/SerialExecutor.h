// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

#include "base/Executor.h"

namespace vtx {

/// An executor with a thread of its own. The thread starts with the first job, so that an executor
/// that is never used costs no thread, and ends with the executor: a running job is waited for,
/// jobs still queued are dropped. What jobs have to tell waits until no other job is queued:
/// posting at once would wake its receiver between two jobs, on the same processor in the place of
/// the next.
class SerialExecutor final : public Executor {
public:
    /// `onStart` runs first on the new thread; a platform names the thread there.
    explicit SerialExecutor(Job onStart = {}) : onStart_(std::move(onStart)) {}
    ~SerialExecutor() override;

    void post(Job job) override;
    void tell(Executor& home, Job job) override;
    [[nodiscard]] bool isCurrent() const override;

private:
    /// Jobs that one executor is to run.
    struct Told {
        Executor* home = nullptr;
        std::vector<Job> jobs;
    };

    void run();
    void passOn();

    Job onStart_;
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Job> jobs_;
    bool stopping_ = false;
    std::thread thread_;

    std::vector<Told> told_;  ///< of the thread alone
};

}  // namespace vtx
