// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "base/Date.h"
#include "base/QueueExecutor.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/RunLoop.h"

namespace vtx {

/// A run loop over `poll()`, with the main executor that belongs to it: for tests, benchmarks and
/// programs without a toolkit. Runs on the thread that made it; other threads only post.
class PollRunLoop final : public RunLoop {
public:
    /// Throws `std::system_error` when the system has no descriptor left.
    PollRunLoop();

    [[nodiscard]] Executor& executor() { return executor_; }

    [[nodiscard]] Subscription watch(int fd, short pollEvents,
                                     std::function<void()> ready) override;

    /// Runs jobs and ready descriptors until `isDone` says so, which is asked after each of them;
    /// false when `limit` has passed before. Without work it waits in the kernel.
    bool runUntil(const std::function<bool()>& isDone, Duration limit);

    /// Runs what is ready now, jobs posted meanwhile included, without waiting.
    void runReady();

private:
    /// Wakes the loop out of `poll()` by an event descriptor.
    class WakingExecutor final : public QueueExecutor {
    public:
        explicit WakingExecutor(int event) : event_(event) {}

    private:
        void wake() override;
        int event_;
    };

    struct Watch {
        int fd;
        short events;
        std::function<void()> ready;  ///< null once the token has gone
    };

    bool runJobs(const std::function<bool()>& isDone);
    bool pollOnce(int timeoutMilliseconds, const std::function<bool()>& isDone);

    FileDescriptor event_;
    WakingExecutor executor_;
    std::vector<std::shared_ptr<Watch>> watches_;
};

}  // namespace vtx
