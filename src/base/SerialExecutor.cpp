// SPDX-License-Identifier: MIT
#include "base/SerialExecutor.h"

#include <utility>

#include "base/PostBurst.h"

namespace vtx {
namespace {

/// Where jobs keep coming, what was done is told after so many.
constexpr int mostInARow = 16;

}  // namespace

SerialExecutor::~SerialExecutor() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_one();
    if (thread_.joinable()) thread_.join();
    told_.clear();
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
    PostBurst::wake(wake_);
}

void SerialExecutor::tell(Executor& home, Job job) {
    if (told_.empty() || told_.back().home != &home) told_.push_back({&home, {}});
    told_.back().jobs.push_back(std::move(job));
}

void SerialExecutor::passOn() {
    for (Told& told : std::exchange(told_, {})) {
        told.home->post([jobs = std::move(told.jobs)]() mutable {
            for (Job& job : jobs) {
                job();
                job.reset();
            }
        });
    }
}

bool SerialExecutor::isCurrent() const {
    const std::lock_guard lock(mutex_);
    return thread_.get_id() == std::this_thread::get_id();
}

void SerialExecutor::run() {
    if (onStart_) onStart_();
    int jobsInARow = 0;
    std::unique_lock lock(mutex_);
    for (;;) {
        if (!told_.empty() && (jobs_.empty() || jobsInARow >= mostInARow) && !stopping_) {
            lock.unlock();
            passOn();
            lock.lock();
        }
        if (jobs_.empty() || jobsInARow >= mostInARow) jobsInARow = 0;
        wake_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
        if (stopping_) return;
        Job job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        job();
        job.reset();  // what it owned goes here, before the next one runs, and without the lock
        ++jobsInARow;
        lock.lock();
    }
}

}  // namespace vtx
