// SPDX-License-Identifier: MIT
#include "platform/linux/TerminationSignals.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace vtx {
namespace {

sigset_t termination() {
    sigset_t set;
    sigemptyset(&set);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&set, number);
    return set;
}

}  // namespace

void TerminationSignals::block() {
    const sigset_t set = termination();
    sigprocmask(SIG_BLOCK, &set, nullptr);
}

TerminationSignals::TerminationSignals(RunLoop& loop, std::function<void()> asked)
    : asked_(std::move(asked)) {
    const sigset_t set = termination();
    descriptor_ = FileDescriptor(signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC));
    if (descriptor_.get() >= 0)
        watch_ = loop.watch(descriptor_.get(), POLLIN, [this] { receive(); });
}

void TerminationSignals::receive() {
    signalfd_siginfo info{};
    if (read(descriptor_.get(), &info, sizeof info) != static_cast<ssize_t>(sizeof info)) return;
    if (wasAsked_) _exit(128 + static_cast<int>(info.ssi_signo));
    wasAsked_ = true;
    asked_();
}

}  // namespace vtx
