// SPDX-License-Identifier: MIT
#include "platform/linux/DetachedProgram.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "linux/TemporaryTree.h"
#include "platform/linux/FileDescriptor.h"

namespace vtx::test {
namespace {

/// A shell that is started detached and writes into a pipe with a name.
struct DetachedPrograms : testing::Test {
    void SetUp() override {
        ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
        end = FileDescriptor(::open(pipe.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    }
    /// The first line that it writes; empty where it writes none within reason.
    std::string said(const std::string& script) {
        EXPECT_TRUE(startDetached({"sh", "-c", script + " > " + pipe}));
        pollfd ready{end.get(), POLLIN, 0};
        std::array<char, 256> text{};
        if (::poll(&ready, 1, 30'000) != 1) return {};
        const auto bytes = ::read(end.get(), text.data(), text.size());
        return bytes > 0 ? std::string(text.data(), static_cast<std::size_t>(bytes) - 1) : "";
    }

    TemporaryTree tree;
    std::string pipe = (tree / "pipe").string();
    FileDescriptor end;
};

TEST_F(DetachedPrograms, it_runs_and_is_no_child_of_ours) {
    EXPECT_EQ(said("echo here"), "here");
    errno = 0;
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(DetachedPrograms, it_can_be_ended_although_this_program_blocks_the_signals) {
    sigset_t blocked, before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const std::string mask = said("grep SigBlk /proc/self/status | tr -d '\\t'");
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    EXPECT_EQ(mask, "SigBlk:0000000000000000");
}

TEST_F(DetachedPrograms, it_has_none_of_our_descriptors) {
    const int kept = ::open("/dev/null", O_RDONLY);  // without a flag that closes it
    EXPECT_EQ(said("[ -e /proc/$$/fd/" + std::to_string(kept) + " ] && echo kept || echo gone"),
              "gone");
    ::close(kept);
}

TEST(DetachedProgram, nothing_is_not_started) { EXPECT_FALSE(startDetached({})); }

TEST(DetachedProgram, a_program_that_is_not_there_leaves_nothing_behind) {
    EXPECT_TRUE(startDetached({"/nonexistent/program"}));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

}  // namespace
}  // namespace vtx::test
