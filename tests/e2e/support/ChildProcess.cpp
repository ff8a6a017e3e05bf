// SPDX-License-Identifier: MIT
#include "support/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <stdexcept>

#include "support/Folder.h"

namespace vtx::e2e {
namespace {

constexpr int announcementDescriptor = 3;
constexpr Span mayTakeToEnd{5'000};

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::filesystem::path outputOf(std::filesystem::path log) { return log += ".out"; }

int open(const std::filesystem::path& file) {
    return ::open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
}

/// What is prepared before the fork: the child itself may only call what is safe there.
struct Prepared {
    std::vector<std::string> command;
    std::vector<std::string> environment;
    int output, errors, announcing;
};

[[noreturn]] void become(const Prepared& made, char** command, char** environment) {
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    ::dup2(made.output, STDOUT_FILENO);
    ::dup2(made.errors, STDERR_FILENO);
    // On its own place already, it would keep the mark that closes it.
    if (made.announcing == announcementDescriptor)
        ::fcntl(announcementDescriptor, F_SETFD, 0);
    else
        ::dup2(made.announcing, announcementDescriptor);
    ::execvpe(command[0], command, environment);
    constexpr int notFound = 127;
    ::_exit(notFound);
}

std::optional<siginfo_t> endOf(pid_t pid) {
    siginfo_t info{};
    const int result = ::waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT);
    return result == 0 && info.si_pid == pid ? std::optional(info) : std::nullopt;
}

}  // namespace

ChildProcess::ChildProcess(const Launch& launch)
    : name_(std::filesystem::path(launch.command.at(0)).filename()), log_(launch.log) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    Prepared made{launch.command, {}, open(outputOf(log_)), open(log_), ends[1]};
    for (const auto& [key, value] : launch.environment)
        made.environment.push_back(std::string(key).append("=").append(value));
    const auto command = pointersTo(made.command), environment = pointersTo(made.environment);
    pid_ = ::fork();
    if (pid_ == 0)
        become(made, const_cast<char**>(command.data()), const_cast<char**>(environment.data()));
    for (const int done : {made.output, made.errors, made.announcing}) ::close(done);
    announcing_ = ends[0];
    if (pid_ < 0) throw std::runtime_error("no process for " + name_);
    ::setpgid(pid_, pid_);  // here too, so that it is one when this returns
}

ChildProcess::~ChildProcess() {
    ::close(announcing_);
    if (pid_ <= 0) return;
    send(SIGTERM);
    (void)exitStatus(mayTakeToEnd);
    // Before it is waited for, so that the number of the group is still nobody else's.
    ::kill(-pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
}

std::string ChildProcess::announcement() {
    std::string line;
    pollfd readable{announcing_, POLLIN, 0};
    for (char c = 0; c != '\n'; line += c) {
        if (::poll(&readable, 1, static_cast<int>(patience.count())) != 1 ||
            ::read(announcing_, &c, 1) != 1)
            throw std::runtime_error(name_ + " did not start: " + errors());
    }
    line.pop_back();
    return line;
}

std::string ChildProcess::output() const { return contentsOf(outputOf(log_)); }

std::string ChildProcess::errors() const { return contentsOf(log_); }

void ChildProcess::send(int signal) const { ::kill(pid_, signal); }

bool ChildProcess::hasEnded() const { return endOf(pid_).has_value(); }

std::optional<int> ChildProcess::exitStatus(Span within) const {
    if (!eventually([this] { return hasEnded(); }, within)) return std::nullopt;
    const siginfo_t info = *endOf(pid_);
    constexpr int bySignal = 128;
    return info.si_code == CLD_EXITED ? info.si_status : bySignal + info.si_status;
}

}  // namespace vtx::e2e
