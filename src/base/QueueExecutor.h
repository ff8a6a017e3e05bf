// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <mutex>
#include <thread>

#include "base/Executor.h"

namespace vtx {

/// An executor whose jobs run when its owner says so, on the owner's thread: the main executor of
/// tests and of programs without an event loop of a toolkit.
class QueueExecutor : public Executor {
public:
    QueueExecutor() : owner_(std::this_thread::get_id()) {}
    ~QueueExecutor() override;

    void post(Job job) override;
    [[nodiscard]] bool isCurrent() const override { return std::this_thread::get_id() == owner_; }

    /// Runs the oldest job. False when there was none.
    bool runOne();
    /// Runs jobs until none is left, those posted meanwhile included; says how many ran.
    std::size_t drain();
    [[nodiscard]] bool isEmpty() const;

protected:
    /// Called on the posting thread after a job was added to an empty queue.
    virtual void wake() {}

private:
    /// The oldest job, no longer queued; an empty one when there is none.
    Job take();

    mutable std::mutex mutex_;
    std::deque<Job> jobs_;
    std::thread::id owner_;
};

}  // namespace vtx
