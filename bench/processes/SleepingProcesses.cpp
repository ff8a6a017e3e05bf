// SPDX-License-Identifier: MIT
#include "processes/SleepingProcesses.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace vtx::bench {
namespace {

[[noreturn]] void sleepForever(pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(1);
    for (;;) ::pause();
}

}  // namespace

SleepingProcesses::SleepingProcesses(int count) {
    const pid_t parent = ::getpid();
    for (int i = 0; i < count; ++i) {
        const pid_t process = ::fork();
        if (process == 0) sleepForever(parent);
        if (process < 0) {
            const int error = errno;
            end();
            throw std::system_error(error, std::generic_category(), "sleeping processes");
        }
        processes_.push_back(process);
    }
}

SleepingProcesses::~SleepingProcesses() { end(); }

void SleepingProcesses::end() {
    for (const pid_t process : processes_) ::kill(process, SIGKILL);
    for (const pid_t process : processes_) ::waitpid(process, nullptr, 0);
    processes_.clear();
}

}  // namespace vtx::bench
