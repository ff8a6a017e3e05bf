// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxClock.h"

#include <poll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <system_error>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/TimerQueue.h"

namespace vtx {
namespace {

std::chrono::nanoseconds readClock(clockid_t clock) {
    struct timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

int makeTimer() {
    const int timer = ::timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK);
    if (timer < 0) throw std::system_error(errno, std::system_category(), "timerfd_create");
    return timer;
}

}  // namespace

struct LinuxClock::Core {
    FileDescriptor timer{makeTimer()};
    TimerQueue queue;
    std::optional<Instant> armedFor;
    bool isRunning = false;

    /// Sets the descriptor for the queue's next moment, if that has moved.
    void arm() {
        // Jobs under way schedule and cancel a lot; one setting after them is enough.
        if (isRunning) return;
        const auto wake = queue.wakeAt();
        if (wake == armedFor) return;
        armedFor = wake;
        struct itimerspec setting{};
        if (wake) {
            // Zero would disarm; a moment before the start is due at once all the same.
            const auto since = std::max(wake->time_since_epoch(), Duration(1));
            const auto whole = std::chrono::floor<std::chrono::seconds>(since);
            setting.it_value.tv_sec = whole.count();
            setting.it_value.tv_nsec = (since - whole).count();
        }
        ::timerfd_settime(timer.get(), TFD_TIMER_ABSTIME, &setting, nullptr);
    }

    void fire() {
        std::uint64_t expirations = 0;
        [[maybe_unused]] const auto got = ::read(timer.get(), &expirations, sizeof expirations);
        armedFor.reset();
        isRunning = true;
        queue.runDue(bootTime());
        isRunning = false;
        arm();
    }
};

LinuxClock::LinuxClock(RunLoop& loop) : core_(std::make_shared<Core>()) {
    watch_ = loop.watch(core_->timer.get(), POLLIN, [weak = std::weak_ptr(core_)] {
        if (const auto core = weak.lock()) core->fire();
    });
}

LinuxClock::~LinuxClock() = default;

Date LinuxClock::now() const {
    return Date(std::chrono::floor<std::chrono::microseconds>(readClock(CLOCK_REALTIME)));
}

Instant LinuxClock::continuous() const { return bootTime(); }

Instant LinuxClock::bootTime() { return Instant(readClock(CLOCK_BOOTTIME)); }

Subscription LinuxClock::schedule(Instant deadline, Duration tolerance, Job job) {
    const auto id = core_->queue.add(deadline, tolerance, std::move(job));
    core_->arm();
    return Subscription([weak = std::weak_ptr(core_), id] {
        const auto core = weak.lock();
        if (!core) return;
        core->queue.cancel(id);
        core->arm();
    });
}

}  // namespace vtx
