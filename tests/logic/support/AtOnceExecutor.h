// SPDX-License-Identifier: MIT
#pragma once

#include "base/Executor.h"

namespace vtx {

/// Runs each job inside the call that posts it: a worker that is never late.
class AtOnceExecutor final : public Executor {
public:
    void post(Job job) override { job(); }
    [[nodiscard]] bool isCurrent() const override { return true; }
};

}  // namespace vtx
