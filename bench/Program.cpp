// SPDX-License-Identifier: MIT
#include "Program.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <thread>

#include "PseudoTerminal.h"

namespace vtx::bench {
namespace {

constexpr auto patience = std::chrono::seconds(5);
constexpr auto glance = std::chrono::milliseconds(20);

void writeNowhere() {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDOUT_FILENO);
}

[[noreturn]] void become(const std::vector<std::string>& command,
                         const Program::Environment& environment, const PseudoTerminal* terminal) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    sigset_t none{};
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
    terminal ? terminal->adopt() : writeNowhere();
    close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    std::vector<char*> arguments;
    for (const auto& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments.front(), arguments.data());
    std::perror(arguments.front());
    _exit(127);
}

}  // namespace

Program::Program(const std::vector<std::string>& command, const Environment& environment,
                 const PseudoTerminal* terminal)
    : process_(fork()) {
    if (process_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (process_ == 0) become(command, environment, terminal);
}

Program::~Program() {
    (void)end();
    if (!isRunning()) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

bool Program::isRunning() {
    if (process_ > 0 && waitpid(process_, &status_, WNOHANG) != 0) process_ = -1;
    return process_ > 0;
}

std::optional<int> Program::end() {
    if (!isRunning()) return std::nullopt;
    kill(process_, SIGTERM);
    const auto limit = std::chrono::steady_clock::now() + patience;
    while (isRunning()) {
        if (std::chrono::steady_clock::now() > limit) return std::nullopt;
        std::this_thread::sleep_for(glance);
    }
    constexpr int bySignal = 128;
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : bySignal + WTERMSIG(status_);
}

}  // namespace vtx::bench
