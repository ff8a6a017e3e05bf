// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/Clock.h"
#include "base/Executor.h"

namespace vtx {

/// The one thread on which the platform reads what may block: a slow sensor, a call over a bus, a
/// vendor's library. It starts with the first job, so that a machine without such sources never
/// has it, and waits without a timer while nobody asks.
///
/// A read may hang for good, and the program must end all the same. The end therefore waits for the
/// running job for `patience` only; a job that is still running then is abandoned with its thread,
/// which touches nothing of this object any more and goes with the process. (A call that hangs
/// inside the kernel, deaf to every signal, holds the process's remains until it returns: no
/// program can help that.) So a job owns what it uses, and what it owns stays good after main has
/// returned: plain memory and descriptors, no reference to a port. Jobs still queued are dropped.
class SlowReadThread final : public Executor {
public:
    /// `onStart` runs first on the new thread; the platform names the thread there.
    explicit SlowReadThread(Job onStart = {}, Duration patience = std::chrono::milliseconds(200));
    ~SlowReadThread() override;

    void post(Job job) override;
    [[nodiscard]] bool isCurrent() const override;

private:
    struct Core;
    std::shared_ptr<Core> core_;  ///< shared with the thread
    const Duration patience_;
};

}  // namespace vtx
