// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

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

    /// From within a job of this executor: has `home` run a job that tells what this one did. An
    /// executor of jobs that often come in a row may tell of them together, in their order, so that
    /// `home` is woken once.
    virtual void tell(Executor& home, Job job) { home.post(std::move(job)); }

    /// Whether the calling code runs on this executor; for assertions.
    [[nodiscard]] virtual bool isCurrent() const = 0;
};

}  // namespace vtx
