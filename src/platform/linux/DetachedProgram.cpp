// SPDX-License-Identifier: MIT
#include "platform/linux/DetachedProgram.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/DescriptorLimit.h"

namespace vtx {
namespace {

/// Only calls that are safe after a fork of a program with threads. What this program blocks or
/// ignores, its children would too.
[[noreturn]] void become(char* const* arguments) {
    ::setsid();
    if (::fork() != 0) ::_exit(0);  // whoever is left belongs to nobody, and is reaped by init
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int signal : {SIGPIPE, SIGINT, SIGTERM, SIGHUP, SIGCHLD}) ::signal(signal, SIG_DFL);
    restoreDescriptorLimit();
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
    ::execvp(arguments[0], arguments);
    ::_exit(127);
}

}  // namespace

bool startDetached(const std::vector<std::string>& command) {
    if (command.empty()) return false;
    std::vector<char*> arguments;
    // The platform's interface is older than const.
    for (const auto& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t child = ::fork();
    if (child < 0) return false;
    if (child == 0) become(arguments.data());
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return true;
}

}  // namespace vtx
