// SPDX-License-Identifier: MIT
#include "base/QueueExecutor.h"

namespace vtx {

QueueExecutor::~QueueExecutor() {
    // One by one, for what a dropped job owned may post again as it goes.
    while (take()) {
    }
}

void QueueExecutor::post(Job job) {
    bool wasEmpty = false;
    {
        const std::lock_guard lock(mutex_);
        wasEmpty = jobs_.empty();
        jobs_.push_back(std::move(job));
    }
    if (wasEmpty) wake();
}

Job QueueExecutor::take() {
    const std::lock_guard lock(mutex_);
    if (jobs_.empty()) return {};
    Job job = std::move(jobs_.front());
    jobs_.pop_front();
    return job;
}

bool QueueExecutor::runOne() {
    Job job = take();
    if (!job) return false;
    job();
    return true;
}

std::size_t QueueExecutor::drain() {
    std::size_t ran = 0;
    while (runOne()) ++ran;
    return ran;
}

bool QueueExecutor::isEmpty() const {
    const std::lock_guard lock(mutex_);
    return jobs_.empty();
}

}  // namespace vtx
