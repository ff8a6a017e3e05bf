// SPDX-License-Identifier: MIT
#include "platform/linux/ThreadPriorities.h"

#include <fmt/format.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <string>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/Parse.h"
#include "platform/linux/ProcStat.h"

namespace vtx {
namespace {

/// Threads that begin while the others are changed have the niceness of the one that began them.
constexpr int roundsOverThreads = 3;
constexpr std::size_t statBytes = 4096;

/// Holds on to one process: it stays the one that was meant, even where its number is given again.
class HeldProcess {
public:
    explicit HeldProcess(std::int32_t pid)
        : descriptor_(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0))),
          isThread_(!descriptor_ && (errno == EINVAL || errno == ENOENT)),
          isGone_(!descriptor_ && !isThread_ && errno == ESRCH) {}

    /// Taken for granted where it cannot be held on to: an older kernel, a filter of calls, no
    /// descriptor left.
    [[nodiscard]] bool isThere() const {
        if (isThread_ || isGone_) return false;
        return !descriptor_ ||
               ::syscall(SYS_pidfd_send_signal, descriptor_.get(), 0, nullptr, 0) == 0 ||
               errno != ESRCH;
    }

private:
    FileDescriptor descriptor_;
    bool isThread_;  ///< the number is a thread's, of whatever process
    bool isGone_;
};

std::optional<int> niceOf(id_t thread) {
    errno = 0;
    const int nice = ::getpriority(PRIO_PROCESS, thread);
    return nice == -1 && errno != 0 ? std::nullopt : std::optional(nice);
}

bool isStillMeant(const LinuxRoot& root, std::int32_t pid, ProcessStartTime start) {
    const auto text = root.readHead(fmt::format("/proc/{}/stat", pid), statBytes);
    const auto stat = text ? parseProcStat(*text) : std::nullopt;
    return stat && stat->startTime == start;
}

/// Whether any thread was changed.
bool followFirst(const LinuxRoot& root, std::int32_t pid, int before, int nice) {
    bool hasChanged = false;
    for (const auto& name : root.list(fmt::format("/proc/{}/task", pid))) {
        const auto number = parseUnsigned(name);
        if (!number || *number > std::numeric_limits<std::int32_t>::max()) continue;
        const auto thread = static_cast<id_t>(*number);
        const auto now = niceOf(thread);
        if (!now || *now == nice || (*now != before && *now > nice)) continue;
        hasChanged |= ::setpriority(PRIO_PROCESS, thread, nice) == 0;
    }
    return hasChanged;
}

}  // namespace

int setThreadPriorities(const LinuxRoot& root, std::int32_t pid,
                        std::optional<ProcessStartTime> start, std::int32_t nice) {
    if (pid < 1) return ESRCH;  // 0 would be this program
    const HeldProcess held(pid);
    if (!held.isThere() || (start && !isStillMeant(root, pid, *start))) return ESRCH;
    const auto first = static_cast<id_t>(pid);
    const auto before = niceOf(first);
    if (!before) return ESRCH;
    if (::setpriority(PRIO_PROCESS, first, nice) != 0) return errno;
    for (int round = 0; round < roundsOverThreads; ++round)
        if (!followFirst(root, pid, *before, nice)) break;
    return held.isThere() ? 0 : ESRCH;
}

}  // namespace vtx
