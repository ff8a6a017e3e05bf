// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "base/Executor.h"

namespace vtx {

/// An executor with a thread of its own. The thread starts with the first job, so that an executor
/// that is never used costs no thread, and ends with the executor: a running job is waited for,
/// jobs still queued are dropped.
class SerialExecutor final : public Executor {
public:
    /// `onStart` runs first on the new thread; a platform names the thread there.
    explicit SerialExecutor(Job onStart = {}) : onStart_(std::move(onStart)) {}
    ~SerialExecutor() override;

    void post(Job job) override;
    [[nodiscard]] bool isCurrent() const override;

private:
    void run();

    Job onStart_;
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Job> jobs_;
    bool stopping_ = false;
    std::thread thread_;
};

}  // namespace vtx
