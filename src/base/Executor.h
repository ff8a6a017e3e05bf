// SPDX-License-Identifier: MIT
#pragma once

#include "base/Job.h"

namespace vtx {

/// Runs jobs one after another in the order in which they were posted. State that is confined to
/// an executor is touched by its jobs alone and so needs no lock.
class Executor {
public:
    Executor() = default;
    Executor(const Executor&) = delete;
    Executor& operator=(const Executor&) = delete;
    virtual ~Executor() = default;

    /// Any thread. The job runs later, never inside the call, and is dropped unrun if the executor
    /// goes first.
    virtual void post(Job job) = 0;

    /// Whether the calling code runs on this executor; for assertions.
    [[nodiscard]] virtual bool isCurrent() const = 0;
};

}  // namespace vtx
