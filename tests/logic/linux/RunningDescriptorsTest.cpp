// SPDX-License-Identifier: MIT
// The descriptors that the process table keeps open on the machine that runs the tests.
#include <sys/select.h>

#include <memory>

#include "linux/RunningProcess.h"

namespace vtx::test {
namespace {

using RunningDescriptors = RunningProcesses;

TEST_F(RunningDescriptors, what_stays_open_leaves_the_low_numbers_to_the_program) {
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    if (limit.rlim_cur < rlim_t{2} * FD_SETSIZE)
        GTEST_SKIP() << "this machine gives no higher numbers";
    const int lowest = ::dup(0);
    ::close(lowest);
    ASSERT_FALSE(list().empty());
    ASSERT_GT(table.keptDescriptors(), 0U);
    const int afterwards = ::dup(0);
    ::close(afterwards);
    // The folder and the file of the averages are two, whatever else is open.
    EXPECT_LE(afterwards, lowest + 2);
}

TEST_F(RunningDescriptors, without_descriptors_the_table_gives_some_back_and_goes_on) {
    // Without high numbers the table keeps low ones, of which it can give some back.
    rlimit usual{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
    rlimit low = usual;
    low.rlim_cur = std::min<rlim_t>(usual.rlim_cur, FD_SETSIZE);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
    std::vector<std::unique_ptr<Child>> children;
    children.reserve(23);
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
