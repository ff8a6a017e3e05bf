// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/Clock.h"
#include "platform/linux/GatheringExecutor.h"

namespace vtx {

/// The one thread on which the platform reads what may block: a slow sensor, a call over a bus, a
/// vendor's library. It starts with the first job, so that a machine without such sources never
/// has it, and waits without a timer while nobody asks. What nobody waits for it gathers for a
/// while, so that all that one pass asks for wakes it once.
///
/// A read may hang for good, and the program must end all the same. The end therefore waits for the
/// running job for `patience` only; a job that is still running then is abandoned with its thread,
/// which touches nothing of this object any more and goes with the process. (A call that hangs
/// inside the kernel, deaf to every signal, holds the process's remains until it returns: no
/// program can help that.) So a job owns what it uses, and what it owns stays good after main has
/// returned: plain memory and descriptors, no reference to a port. Jobs still queued are dropped.
class SlowReadThread final : public GatheringExecutor {
public:
    struct Times {
        Duration patience = std::chrono::milliseconds(200);
        /// Longer than the steps of one pass are apart, much shorter than passes are.
        Duration gathering = std::chrono::milliseconds(3);
    };

    /// `onStart` runs first on the new thread; the platform names the thread there. Throws
    /// `std::system_error` when the system has no descriptor left for the timer.
    explicit SlowReadThread(Job onStart = {}) : SlowReadThread(std::move(onStart), Times()) {}
    SlowReadThread(Job onStart, Times times);
    ~SlowReadThread() override;

    void post(Job job) override;
    void postSoon(Job job) override;
    [[nodiscard]] bool isCurrent() const override;
    /// Whether its thread waits for jobs: one that is posted soon is gathered then.
    [[nodiscard]] bool isAtRest() const;

private:
    struct Core;

    void add(Job job, Duration delay);

    std::shared_ptr<Core> core_;  ///< shared with the thread
    const Times times_;
};

}  // namespace vtx
