// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "platform/linux/LinuxProcessTable.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {

/// A process of the test's own, which sleeps until it is ended here.
class Child {
public:
    /// `prepare` runs in it before it sleeps; the constructor returns after that.
    template <class Prepare>
    explicit Child(Prepare prepare) {
        std::array<int, 2> ready{};
        if (::pipe(ready.data()) != 0) return;
        const pid_t parent = ::getpid();
        pid_ = ::fork();
        if (pid_ == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            if (::getppid() != parent) ::_exit(1);
            prepare();
            (void)!::write(ready[1], "x", 1);
            for (;;) ::pause();
        }
        ::close(ready[1]);
        char byte = 0;
        isReady_ = ::read(ready[0], &byte, 1) == 1;
        ::close(ready[0]);
    }
    Child() : Child([] {}) {}
    ~Child() { end(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    [[nodiscard]] pid_t pid() const { return pid_; }
    [[nodiscard]] bool isReady() const { return isReady_; }
    /// Ends it; with `Reap::later` it stays behind as a zombie until this goes.
    enum class Reap { now, later };
    void end(Reap reap = Reap::now) {
        if (pid_ <= 0) return;
        ::kill(pid_, SIGKILL);
        siginfo_t info{};
        ::waitid(P_PID, static_cast<id_t>(pid_), &info,
                 reap == Reap::now ? WEXITED : WEXITED | WNOWAIT);
        if (reap == Reap::now) pid_ = -1;
    }

private:
    pid_t pid_ = -1;
    bool isReady_ = false;
};

/// The process table of the machine that runs the tests.
struct RunningProcesses : testing::Test {
    LinuxRoot root;
    ManualClock clock;
    LinuxProcessTable table{root, clock};

    std::vector<KinfoProc> list() {
        std::size_t bytes = 0;
        EXPECT_EQ(table.kernProcAll({}, bytes), 0);
        std::vector<KinfoProc> records(bytes / kinfoProcBytes + 1);
        EXPECT_EQ(table.kernProcAll(records, bytes), 0);
        records.resize(bytes / kinfoProcBytes);
        clock.advanceBy(seconds(2));
        return records;
    }
    std::optional<KinfoProc> find(pid_t pid) {
        const auto all = list();
        const auto found = std::ranges::find(all, pid, &KinfoProc::pid);
        return found == all.end() ? std::nullopt : std::optional(*found);
    }
    static int niceOf(pid_t pid) { return ::getpriority(PRIO_PROCESS, static_cast<id_t>(pid)); }
};

}  // namespace vtx::test
