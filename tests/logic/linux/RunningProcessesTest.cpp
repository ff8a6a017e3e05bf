// SPDX-License-Identifier: MIT
// The process table of the machine that runs the tests.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/linux/LinuxProcessTable.h"
#include "platform/linux/ProcessListing.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {
namespace {

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

/// A process of the test's own in which "sleep" takes over when it is told to.
class Turncoat {
public:
    Turncoat() {
        std::array<int, 2> go{};
        std::array<int, 2> done{};
        if (::pipe2(go.data(), O_CLOEXEC) != 0 || ::pipe2(done.data(), O_CLOEXEC) != 0) return;
        pid_ = ::fork();
        if (pid_ == 0) turnWhenTold(go, done);
        ::close(go[0]);
        ::close(done[1]);
        go_ = FileDescriptor(go[1]);
        done_ = FileDescriptor(done[0]);
    }
    ~Turncoat() {
        if (pid_ <= 0) return;
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
    }
    Turncoat(const Turncoat&) = delete;
    Turncoat& operator=(const Turncoat&) = delete;

    [[nodiscard]] pid_t pid() const { return pid_; }
    /// Returns when the other program has taken over: that closes the end of the pipe.
    void turn() {
        char byte = 'x';
        ASSERT_EQ(::write(go_.get(), &byte, 1), 1);
        EXPECT_EQ(::read(done_.get(), &byte, 1), 0) << "there is no such program";
    }

private:
    [[noreturn]] static void turnWhenTold(const std::array<int, 2>& go,
                                          const std::array<int, 2>& done) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::close(go[1]);
        char byte = 0;
        if (::read(go[0], &byte, 1) == 1) ::execlp("sleep", "sleep", "600", nullptr);
        (void)!::write(done[1], &byte, 1);
        ::_exit(1);
    }

    pid_t pid_ = -1;
    FileDescriptor go_;
    FileDescriptor done_;
};

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

TEST_F(RunningProcesses, this_program_appears_with_its_own_figures) {
    const auto self = find(::getpid());
    ASSERT_TRUE(self);
    EXPECT_EQ(self->uid, ::geteuid());
    const auto details = table.details(::getpid());
    EXPECT_EQ(details.name, "vantrix-logic-tests");  // longer than the kernel keeps
    ASSERT_TRUE(details.path);
    EXPECT_TRUE(details.path->ends_with("/vantrix-logic-tests"));
    ASSERT_EQ(details.taskInfoBytes, procTaskInfoBytes);
    EXPECT_GT(details.taskInfo.residentSize, std::uint64_t{1} << 20);
    EXPECT_LT(details.taskInfo.residentSize, std::uint64_t{1} << 40);
    EXPECT_GE(details.taskInfo.threadNum, 1);
    EXPECT_EQ(details.priority, niceOf(0));
    EXPECT_TRUE(details.startTime);
    EXPECT_TRUE(details.isSystemSoftware.has_value());
}

TEST_F(RunningProcesses, this_program_uses_processor_time) {
    const auto used = [this] {
        (void)list();
        const auto task = table.details(::getpid()).taskInfo;
        return task.totalUser + task.totalSystem;
    };
    const auto before = used();
    int rounds = 0;
    while (used() <= before && rounds < 1'000'000) ++rounds;
    EXPECT_LT(rounds, 1'000'000);
}

TEST_F(RunningProcesses, threads_are_counted_and_are_no_processes) {
    std::mutex mutex;
    std::condition_variable change;
    pid_t number = 0;
    bool isOver = false;
    (void)list();
    const int before = table.details(::getpid()).taskInfo.threadNum;
    std::thread thread([&] {
        std::unique_lock lock(mutex);
        number = static_cast<pid_t>(::syscall(SYS_gettid));
        change.notify_all();
        change.wait(lock, [&] { return isOver; });
    });
    {
        std::unique_lock lock(mutex);
        change.wait(lock, [&] { return number != 0; });
    }
    EXPECT_FALSE(find(number));
    EXPECT_EQ(table.details(::getpid()).taskInfo.threadNum, before + 1);
    {
        const std::lock_guard lock(mutex);
        isOver = true;
    }
    change.notify_all();
    thread.join();
}

// The second listing walks everything again, those after it only what can be new.
TEST_F(RunningProcesses, one_that_begins_is_there_in_the_next_listing_and_gone_after_its_end) {
    for (int round = 0; round < 40; ++round) {
        Child child;
        ASSERT_TRUE(child.isReady());
        const auto started = find(child.pid());
        ASSERT_TRUE(started) << round;
        EXPECT_EQ(started->uid, ::geteuid());
        EXPECT_EQ(table.details(child.pid()).taskInfoBytes, procTaskInfoBytes);
        const pid_t pid = child.pid();
        child.end();
        EXPECT_FALSE(find(pid)) << round;
    }
}

TEST_F(RunningProcesses, a_listing_by_steps_finds_what_a_whole_one_finds) {
    std::vector<std::unique_ptr<Child>> children;
    for (int round = 0; round < 10; ++round) {
        (void)list();
        for (int i = 0; i < 5; ++i) children.push_back(std::make_unique<Child>());
        if (round % 3 == 2) children.erase(children.begin(), children.begin() + 4);
    }
    const auto pidsOf = [](const std::vector<KinfoProc>& all) {
        std::vector<pid_t> pids;
        for (const auto& record : all) pids.push_back(record.pid);
        return pids;
    };
    const auto bySteps = pidsOf(list());
    LinuxProcessTable fresh(root, clock);
    std::size_t bytes = 0;
    ASSERT_EQ(fresh.kernProcAll({}, bytes), 0);
    std::vector<KinfoProc> records(bytes / kinfoProcBytes + 1);
    ASSERT_EQ(fresh.kernProcAll(records, bytes), 0);
    records.resize(bytes / kinfoProcBytes);
    const auto whole = pidsOf(records);
    // Others may begin and end beside the test; its own processes must be in both.
    for (const auto& child : children) {
        EXPECT_TRUE(std::ranges::binary_search(bySteps, child->pid()));
        EXPECT_TRUE(std::ranges::binary_search(whole, child->pid()));
    }
    EXPECT_TRUE(std::ranges::is_sorted(bySteps));
}

TEST_F(RunningProcesses, as_a_rule_only_what_can_be_new_is_walked) {
    using enum ProcessListing::Extent;
    ProcFolder folder(root);
    ASSERT_TRUE(folder.open());
    if (!folder.isKernels()) GTEST_SKIP() << "/proc is another process's view";
    ProcessListing listing(root, clock);
    // Two whole ones to begin with: what was about to start at the first is not listed before.
    EXPECT_EQ(listing.next(folder).extent, all);
    EXPECT_EQ(listing.next(folder).extent, all);
    std::size_t wholes = 0;
    for (int i = 0; i < 17; ++i) wholes += listing.next(folder).extent == all ? 1U : 0U;
    EXPECT_EQ(wholes, 1U);
    EXPECT_EQ(listing.next(folder).extent, some);
    clock.advanceBy(seconds(11));
    EXPECT_EQ(listing.next(folder).extent, all);
    const Child child;
    const auto next = listing.next(folder);
    EXPECT_EQ(next.extent, some);
    EXPECT_TRUE(std::ranges::binary_search(next.pids, child.pid()));
    EXPECT_FALSE(std::ranges::binary_search(next.pids, 1));
}

TEST_F(RunningProcesses, after_many_new_numbers_everything_is_walked) {
    using enum ProcessListing::Extent;
    ProcFolder folder(root);
    ASSERT_TRUE(folder.open());
    if (!folder.isKernels()) GTEST_SKIP() << "/proc is another process's view";
    ProcessListing listing(root, clock);
    EXPECT_EQ(listing.next(folder).extent, all);
    EXPECT_EQ(listing.next(folder).extent, all);
    // A thread takes a number as a process does.
    for (int i = 0; i <= 4096; ++i) std::thread([] {}).join();
    EXPECT_EQ(listing.next(folder).extent, all);
}

TEST_F(RunningProcesses, what_has_ended_and_is_not_forgotten_holds_no_memory) {
    Child child;
    ASSERT_TRUE(find(child.pid()));
    child.end(Child::Reap::later);
    ASSERT_TRUE(find(child.pid()));
    const auto details = table.details(child.pid());
    EXPECT_EQ(details.taskInfo.residentSize, 0U);
    EXPECT_EQ(details.path, std::nullopt);
}

TEST_F(RunningProcesses, another_program_in_the_same_process_has_its_own_name_and_path) {
    Turncoat process;
    ASSERT_TRUE(find(process.pid()));
    const auto before = table.details(process.pid());
    EXPECT_EQ(before.name, "vantrix-logic-tests");
    const auto start = before.startTime;
    process.turn();
    ASSERT_TRUE(find(process.pid()));
    const auto after = table.details(process.pid());
    EXPECT_EQ(after.name, "sleep");
    ASSERT_TRUE(after.path);
    EXPECT_FALSE(after.path->ends_with("/vantrix-logic-tests"));
    EXPECT_EQ(after.startTime, start);
}

TEST_F(RunningProcesses, a_child_is_given_a_lower_priority_with_all_its_threads) {
    std::array<int, 2> report{};
    ASSERT_EQ(::pipe(report.data()), 0);
    Child child([&report] {
        // Without the C library's threads, of which the child of a fork may have none.
        static std::array<char, 65536> stack;
        constexpr int flags = CLONE_VM | CLONE_FS | CLONE_FILES | CLONE_SIGHAND | CLONE_THREAD;
        const auto wait = [](void*) -> int {
            for (;;) ::pause();
        };
        const pid_t thread = ::clone(wait, stack.data() + stack.size(), flags, nullptr);
        (void)!::write(report[1], &thread, sizeof thread);
    });
    ASSERT_TRUE(child.isReady());
    pid_t thread = 0;
    ASSERT_EQ(::read(report[0], &thread, sizeof thread), static_cast<ssize_t>(sizeof thread));
    ::close(report[0]);
    ::close(report[1]);
    ASSERT_GT(thread, 0);
    (void)list();
    const auto start = table.details(child.pid()).startTime;
    ASSERT_TRUE(start);
    EXPECT_EQ(table.details(child.pid()).taskInfo.threadNum, 2);
    // The tests may run at a niceness of their own.
    EXPECT_EQ(table.setpriority(child.pid(), *start + 1, 19), ESRCH);
    EXPECT_EQ(niceOf(child.pid()), niceOf(0));
    EXPECT_EQ(table.setpriority(child.pid(), start, 19), 0);
    EXPECT_EQ(niceOf(child.pid()), 19);
    EXPECT_EQ(niceOf(thread), 19);
    (void)list();
    EXPECT_EQ(table.details(child.pid()).priority, 19);
}

TEST_F(RunningProcesses, what_is_not_there_is_not_given_a_priority) {
    Child child;
    const pid_t pid = child.pid();
    child.end();
    EXPECT_EQ(table.setpriority(pid, std::nullopt, 5), ESRCH);
    EXPECT_EQ(table.setpriority(0, std::nullopt, 5), ESRCH);
    EXPECT_EQ(table.setpriority(-1, std::nullopt, 5), ESRCH);
}

TEST_F(RunningProcesses, one_that_cannot_be_held_for_want_of_descriptors_is_changed_all_the_same) {
#if defined(__has_feature)
#if __has_feature(undefined_behavior_sanitizer) || __has_feature(address_sanitizer)
    // Which checks by a pipe whether memory may be read.
    GTEST_SKIP() << "the sanitizer needs descriptors itself";
#endif
#endif
    const Child child;
    ASSERT_TRUE(child.isReady());
    rlimit usual{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
    rlimit none = usual;
    none.rlim_cur = 0;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const int error = table.setpriority(child.pid(), std::nullopt, 19);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &usual), 0);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(niceOf(child.pid()), 19);
}

TEST_F(RunningProcesses, an_ordinary_user_may_not_raise_a_priority_again) {
    constexpr uid_t nobody = 65534;
    Child child([] {
        if (::geteuid() == 0) (void)!::setresuid(nobody, nobody, nobody);
    });
    ASSERT_TRUE(child.isReady());
    (void)list();
    const auto start = table.details(child.pid()).startTime;
    // The test itself may be the superuser, so another process asks, as that user.
    std::array<int, 2> report{};
    ASSERT_EQ(::pipe(report.data()), 0);
    const Child asking([&] {
        if (::geteuid() == 0) (void)!::setresuid(nobody, nobody, nobody);
        const std::array answers{static_cast<int>(::geteuid()),
                                 table.setpriority(child.pid(), start, 19),
                                 table.setpriority(child.pid(), start, 18)};
        (void)!::write(report[1], answers.data(), sizeof answers);
    });
    ASSERT_TRUE(asking.isReady());
    std::array<int, 3> answers{};
    ASSERT_EQ(::read(report[0], answers.data(), sizeof answers),
              static_cast<ssize_t>(sizeof answers));
    ::close(report[0]);
    ::close(report[1]);
    if (answers[0] == 0) GTEST_SKIP() << "this machine does not let the superuser step down";
    EXPECT_EQ(answers[1], 0);
    EXPECT_EQ(answers[2], EACCES);
    EXPECT_EQ(niceOf(child.pid()), 19);
}

TEST_F(RunningProcesses, all_are_found_again_after_nobody_asked) {
    const Child child;
    for (int round = 0; round < 3; ++round) (void)list();
    table.letGo();
    EXPECT_EQ(table.keptDescriptors(), 0U);
    EXPECT_TRUE(find(child.pid()));
    EXPECT_TRUE(find(1));
    EXPECT_TRUE(find(::getpid()));
}

TEST_F(RunningProcesses, what_stays_open_leaves_the_low_numbers_to_the_program) {
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    if (limit.rlim_cur < 2 * FD_SETSIZE) GTEST_SKIP() << "this machine gives no higher numbers";
    const int lowest = ::dup(0);
    ::close(lowest);
    ASSERT_FALSE(list().empty());
    ASSERT_GT(table.keptDescriptors(), 0U);
    const int afterwards = ::dup(0);
    ::close(afterwards);
    // The folder and the file of the averages are two, whatever else is open.
    EXPECT_LE(afterwards, lowest + 2);
}

TEST_F(RunningProcesses, without_descriptors_the_table_gives_some_back_and_goes_on) {
    // Without high numbers the table keeps low ones, of which it can give some back.
    rlimit usual{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
    rlimit low = usual;
    low.rlim_cur = std::min<rlim_t>(usual.rlim_cur, FD_SETSIZE);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
    std::vector<std::unique_ptr<Child>> children;
    for (int i = 0; i < 20; ++i) children.push_back(std::make_unique<Child>());
    const auto before = list().size();
    ASSERT_GE(before, 20U);
    const auto kept = table.keptDescriptors();
    for (int i = 0; i < 3; ++i) children.push_back(std::make_unique<Child>());
    // Nothing may be opened above the lowest number that is free now.
    const int lowest = ::dup(0);
    ::close(lowest);
    rlimit none = usual;
    none.rlim_cur = static_cast<rlim_t>(lowest);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const auto all = list();
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &usual), 0);
    EXPECT_LT(table.keptDescriptors(), kept);
    for (const auto& child : children) {
        const auto found = std::ranges::find(all, child->pid(), &KinfoProc::pid);
        ASSERT_NE(found, all.end());
        EXPECT_EQ(table.details(child->pid()).taskInfoBytes, procTaskInfoBytes);
    }
}

}  // namespace
}  // namespace vtx::test
