// SPDX-License-Identifier: MIT
#include "Interruption.h"

#include <time.h>

#include <algorithm>
#include <stdexcept>

namespace vtx::bench {

Interruption::Interruption() {
    sigemptyset(&signals_);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) sigaddset(&signals_, signal);
    pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
}

void Interruption::sleepFor(std::chrono::nanoseconds time) const {
    const auto end = std::chrono::steady_clock::now() + time;
    for (;;) {
        const auto left = std::max(end - std::chrono::steady_clock::now(), {});
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        const timespec limit{seconds.count(), (left - seconds).count()};
        if (sigtimedwait(&signals_, nullptr, &limit) > 0)
            throw std::runtime_error("ended before it was done");
        if (left == left.zero()) return;
    }
}

}  // namespace vtx::bench
