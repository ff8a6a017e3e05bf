// SPDX-License-Identifier: MIT
#include "platform/linux/SlowReadThread.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/linux/FileDescriptor.h"

namespace vtx {
namespace {

constexpr Duration atOnce(1);  // with 0 a timer stops

FileDescriptor makeTimer() {
    FileDescriptor timer(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC));
    if (!timer) throw std::system_error(errno, std::system_category(), "timerfd_create");
    return timer;
}

}  // namespace

/// The thread rests in a read of the timer, and whoever posts sets that: however many jobs are
/// gathered, one waking.
struct SlowReadThread::Core {
    explicit Core(Job job) : onStart(std::move(job)) {}

    void run() {
        if (onStart) onStart();
        std::unique_lock lock(mutex);
        while (!stopping) {
            if (jobs.empty()) {
                rest(lock);
                continue;
            }
            Job job = std::move(jobs.front());
            jobs.pop_front();
            lock.unlock();
            job();
            job.reset();
            lock.lock();
        }
        ended = true;
        hasEnded.notify_all();
    }

    void rest(std::unique_lock<std::mutex>& lock) {
        wakesIn.reset();
        resting = true;
        lock.unlock();
        std::uint64_t expirations = 0;
        [[maybe_unused]] const auto got = ::read(timer.get(), &expirations, sizeof expirations);
        lock.lock();
        resting = false;
    }

    /// With the mutex held. A thread that does not rest looks for itself.
    void wake(Duration delay) {
        if (!resting || (wakesIn && *wakesIn <= delay)) return;
        wakesIn = delay;
        const auto whole = std::chrono::floor<std::chrono::seconds>(delay);
        itimerspec setting{};
        setting.it_value.tv_sec = whole.count();
        setting.it_value.tv_nsec = (delay - whole).count();
        ::timerfd_settime(timer.get(), 0, &setting, nullptr);
    }

    const FileDescriptor timer = makeTimer();
    Job onStart;
    std::mutex mutex;  ///< of all below
    std::condition_variable hasEnded;
    std::deque<Job> jobs;
    std::thread thread;  ///< none before the first job
    bool resting = false;
    std::optional<Duration> wakesIn;  ///< as the timer was set; absent while it is not
    bool stopping = false;
    bool ended = false;
};

SlowReadThread::SlowReadThread(Job onStart, Times times)
    : core_(std::make_shared<Core>(std::move(onStart))), times_(times) {}

SlowReadThread::~SlowReadThread() {
    // What a dropped job owned may post as it goes, so it goes without the lock.
    std::deque<Job> dropped;
    std::thread thread;
    bool hasEnded = false;
    {
        std::unique_lock lock(core_->mutex);
        core_->stopping = true;
        core_->wake(atOnce);
        dropped.swap(core_->jobs);
        thread.swap(core_->thread);
        hasEnded = thread.joinable() &&
                   core_->hasEnded.wait_for(lock, times_.patience, [this] { return core_->ended; });
    }
    if (hasEnded)
        thread.join();
    else if (thread.joinable())
        thread.detach();
}

void SlowReadThread::post(Job job) { add(std::move(job), atOnce); }

void SlowReadThread::postSoon(Job job) {
    add(std::move(job), std::max<Duration>(times_.gathering, atOnce));
}

void SlowReadThread::add(Job job, Duration delay) {
    const std::lock_guard lock(core_->mutex);
    if (core_->stopping) return;
    core_->jobs.push_back(std::move(job));
    if (!core_->thread.joinable()) core_->thread = std::thread([core = core_] { core->run(); });
    core_->wake(delay);
}

bool SlowReadThread::isCurrent() const {
    const std::lock_guard lock(core_->mutex);
    return core_->thread.get_id() == std::this_thread::get_id();
}

bool SlowReadThread::isAtRest() const {
    const std::lock_guard lock(core_->mutex);
    return core_->resting;
}

}  // namespace vtx
