// SPDX-License-Identifier: MIT
#include "base/SerialExecutor.h"

namespace vtx {

SerialExecutor::~SerialExecutor() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_one();
    if (thread_.joinable()) thread_.join();
    // One by one, for what a dropped job owned may post again as it goes.
    while (!jobs_.empty()) {
        const Job dropped = std::move(jobs_.front());
        jobs_.pop_front();
    }
}

void SerialExecutor::post(Job job) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
        if (!thread_.joinable() && !stopping_) thread_ = std::thread([this] { run(); });
    }
    wake_.notify_one();
}

bool SerialExecutor::isCurrent() const {
    const std::lock_guard lock(mutex_);
    return thread_.get_id() == std::this_thread::get_id();
}

void SerialExecutor::run() {
    if (onStart_) onStart_();
    std::unique_lock lock(mutex_);
    for (;;) {
        wake_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
        if (stopping_) return;
        Job job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        job();
        job.reset();  // what it owned goes here, before the next one runs, and without the lock
        lock.lock();
    }
}

}  // namespace vtx
