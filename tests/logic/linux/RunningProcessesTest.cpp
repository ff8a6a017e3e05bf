// SPDX-License-Identifier: MIT
// Which processes run on the machine that runs the tests, and what is told of them.
#include <fcntl.h>
#include <sys/syscall.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "linux/RunningProcess.h"
#include "platform/linux/ProcessListing.h"

namespace vtx::test {
namespace {

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

TEST_F(RunningProcesses, all_are_found_again_after_nobody_asked) {
    const Child child;
    for (int round = 0; round < 3; ++round) (void)list();
    table.letGo();
    EXPECT_EQ(table.keptDescriptors(), 0U);
    EXPECT_TRUE(find(child.pid()));
    EXPECT_TRUE(find(1));
    EXPECT_TRUE(find(::getpid()));
}

}  // namespace
}  // namespace vtx::test
