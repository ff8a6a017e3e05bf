// SPDX-License-Identifier: MIT
#pragma once

#include <pthread.h>
#include <time.h>

#include <cerrno>
#include <chrono>
#include <system_error>

namespace vtx::bench {

/// The CPU time that one thread has used, whoever asks.
class ThreadClock {
public:
    /// Of the calling thread.
    ThreadClock() {
        const int error = pthread_getcpuclockid(pthread_self(), &clock_);
        if (error != 0) throw std::system_error(error, std::generic_category(), "thread clock");
    }

    /// The thread must not have ended.
    [[nodiscard]] std::chrono::nanoseconds used() const {
        timespec time{};
        if (clock_gettime(clock_, &time) != 0) {
            throw std::system_error(errno, std::generic_category(), "thread clock");
        }
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

private:
    clockid_t clock_{};
};

}  // namespace vtx::bench
