// SPDX-License-Identifier: MIT
#include "platform/linux/PollRunLoop.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>

namespace vtx {
namespace {

int makeEvent() {
    const int event = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (event < 0) throw std::system_error(errno, std::system_category(), "eventfd");
    return event;
}

/// Jobs that keep posting others give way to the descriptors after so many.
constexpr int jobsPerTurn = 64;

using Deadline = std::chrono::steady_clock::time_point;

/// Rounded up, so that a wait of less than a millisecond does not spin.
int millisecondsUntil(Deadline deadline) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, 60'000));
}

}  // namespace

void PollRunLoop::WakingExecutor::wake() {
    const std::uint64_t one = 1;
    // It can fail only when the counter is full, and then the loop is awake anyway.
    [[maybe_unused]] const auto written = ::write(event_, &one, sizeof one);
}

PollRunLoop::PollRunLoop() : event_(makeEvent()), executor_(event_.get()) {}

Subscription PollRunLoop::watch(int fd, short pollEvents, std::function<void()> ready) {
    auto watch = std::make_shared<Watch>(Watch{fd, pollEvents, std::move(ready)});
    watches_.push_back(watch);
    return Subscription([this, watch = std::move(watch)] {
        watch->ready = nullptr;
        std::erase(watches_, watch);
    });
}

bool PollRunLoop::runUntil(const std::function<bool()>& isDone, Duration limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    for (;;) {
        if (isDone() || runJobs(isDone)) return true;
        const int left = millisecondsUntil(deadline);
        if (pollOnce(executor_.isEmpty() ? left : 0, isDone)) return true;
        if (left == 0) return isDone();
    }
}

void PollRunLoop::runReady() {
    const auto never = [] { return false; };
    do {
        runJobs(never);
        pollOnce(0, never);
    } while (!executor_.isEmpty());
}

bool PollRunLoop::runJobs(const std::function<bool()>& isDone) {
    for (int turn = 0; turn < jobsPerTurn && executor_.runOne(); ++turn) {
        if (isDone()) return true;
    }
    return false;
}

bool PollRunLoop::pollOnce(int timeoutMilliseconds, const std::function<bool()>& isDone) {
    const auto watched = watches_;  // a handler may watch and let go
    std::vector<pollfd> states{{event_.get(), POLLIN, 0}};
    for (const auto& watch : watched) states.push_back({watch->fd, watch->events, 0});
    if (::poll(states.data(), states.size(), timeoutMilliseconds) <= 0) return false;
    if (states[0].revents != 0) {
        std::uint64_t count = 0;
        [[maybe_unused]] const auto got = ::read(event_.get(), &count, sizeof count);
    }
    for (std::size_t i = 0; i < watched.size(); ++i) {
        const auto& watch = *watched[i];
        if (states[i + 1].revents == 0 || !watch.ready) continue;
        std::function<void()>(watch.ready)();
        if (isDone()) return true;
    }
    return false;
}

}  // namespace vtx
