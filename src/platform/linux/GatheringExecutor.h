// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "base/Executor.h"

namespace vtx {

/// An executor whose thread need not be woken for each job.
class GatheringExecutor : public Executor {
public:
    /// For a job that nobody waits for: where the thread would be woken for it alone it is kept a
    /// few milliseconds, for others to come. Jobs run in their order all the same. Any thread.
    virtual void postSoon(Job job) = 0;
};

/// The same on any executor, of which others run the job as soon as any.
inline void postSoon(Executor& executor, Job job) {
    if (auto* const gathering = dynamic_cast<GatheringExecutor*>(&executor))
        gathering->postSoon(std::move(job));
    else
        executor.post(std::move(job));
}

}  // namespace vtx
