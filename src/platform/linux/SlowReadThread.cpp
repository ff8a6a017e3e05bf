// SPDX-License-Identifier: MIT
#include "platform/linux/SlowReadThread.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace vtx {

struct SlowReadThread::Core {
    explicit Core(Job job) : onStart(std::move(job)) {}

    void run() {
        if (onStart) onStart();
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return stopping || !jobs.empty(); });
            if (stopping) break;
            Job job = std::move(jobs.front());
            jobs.pop_front();
            lock.unlock();
            job();
            job.reset();
            lock.lock();
        }
        ended = true;
        changed.notify_all();
    }

    Job onStart;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Job> jobs;
    std::thread thread;  ///< none before the first job
    bool stopping = false;
    bool ended = false;
};

SlowReadThread::SlowReadThread(Job onStart, Duration patience)
    : core_(std::make_shared<Core>(std::move(onStart))), patience_(patience) {}

SlowReadThread::~SlowReadThread() {
    // What a dropped job owned may post as it goes, so it goes without the lock.
    std::deque<Job> dropped;
    std::thread thread;
    bool hasEnded = false;
    {
        std::unique_lock lock(core_->mutex);
        core_->stopping = true;
        core_->changed.notify_all();
        dropped.swap(core_->jobs);
        thread.swap(core_->thread);
        hasEnded = thread.joinable() &&
                   core_->changed.wait_for(lock, patience_, [this] { return core_->ended; });
    }
    if (hasEnded)
        thread.join();
    else if (thread.joinable())
        thread.detach();
}

void SlowReadThread::post(Job job) {
    const std::lock_guard lock(core_->mutex);
    if (core_->stopping) return;
    core_->jobs.push_back(std::move(job));
    if (!core_->thread.joinable()) core_->thread = std::thread([core = core_] { core->run(); });
    core_->changed.notify_all();
}

bool SlowReadThread::isCurrent() const {
    const std::lock_guard lock(core_->mutex);
    return core_->thread.get_id() == std::this_thread::get_id();
}

}  // namespace vtx
