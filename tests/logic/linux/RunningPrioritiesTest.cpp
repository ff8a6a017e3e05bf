// SPDX-License-Identifier: MIT
// Changing the priority of processes of the machine that runs the tests.
#include <sched.h>

#include <cerrno>

#include "linux/RunningProcess.h"

namespace vtx::test {
namespace {

using RunningPriorities = RunningProcesses;

TEST_F(RunningPriorities, a_child_is_given_a_lower_priority_with_all_its_threads) {
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

TEST_F(RunningPriorities, what_is_not_there_is_not_given_a_priority) {
    Child child;
    const pid_t pid = child.pid();
    child.end();
    EXPECT_EQ(table.setpriority(pid, std::nullopt, 5), ESRCH);
    EXPECT_EQ(table.setpriority(0, std::nullopt, 5), ESRCH);
    EXPECT_EQ(table.setpriority(-1, std::nullopt, 5), ESRCH);
}

TEST_F(RunningPriorities, one_that_cannot_be_held_for_want_of_descriptors_is_changed_all_the_same) {
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

TEST_F(RunningPriorities, an_ordinary_user_may_not_raise_a_priority_again) {
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

}  // namespace
}  // namespace vtx::test
