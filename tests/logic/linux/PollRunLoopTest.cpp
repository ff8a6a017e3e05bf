// SPDX-License-Identifier: MIT
#include "platform/linux/PollRunLoop.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <string>
#include <thread>

namespace vtx::test {
namespace {

constexpr Duration longEnough = std::chrono::seconds(60);

/// A pipe with a byte in it, so that its reading end is ready.
struct Pipe {
    Pipe() {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        reader = FileDescriptor(ends[0]);
        writer = FileDescriptor(ends[1]);
        EXPECT_EQ(::write(writer.get(), "x", 1), 1);
    }
    FileDescriptor reader, writer;
};

TEST(PollRunLoop, a_job_of_another_thread_wakes_it) {
    PollRunLoop loop;
    bool ran = false;
    std::thread other([&] { loop.executor().post([&] { ran = true; }); });
    EXPECT_TRUE(loop.runUntil([&] { return ran; }, longEnough));
    other.join();
}

TEST(PollRunLoop, a_ready_descriptor_is_told_until_its_token_goes) {
    PollRunLoop loop;
    const Pipe pipe;
    int told = 0;
    Subscription token;
    token = loop.watch(pipe.reader.get(), POLLIN, [&] {
        if (++told == 3) token.cancel();
    });
    EXPECT_EQ(told, 0);
    EXPECT_TRUE(loop.runUntil([&] { return told == 3; }, longEnough));
    loop.runReady();
    EXPECT_EQ(told, 3);
}

TEST(PollRunLoop, one_handler_may_drop_the_token_of_another_that_is_ready_too) {
    PollRunLoop loop;
    const Pipe first, second;
    std::string told;
    Subscription a, b;
    a = loop.watch(first.reader.get(), POLLIN, [&] { told += 'a', b.cancel(); });
    b = loop.watch(second.reader.get(), POLLIN, [&] { told += 'b', a.cancel(); });
    loop.runReady();
    EXPECT_EQ(told, "a");
}

TEST(PollRunLoop, a_descriptor_that_failed_is_told_as_well) {
    PollRunLoop loop;
    Pipe pipe;
    pipe.reader.reset();
    bool told = false;
    const auto token = loop.watch(pipe.writer.get(), 0, [&] { told = true; });
    EXPECT_TRUE(loop.runUntil([&] { return told; }, longEnough));
}

TEST(PollRunLoop, jobs_that_never_end_leave_the_descriptors_their_turn) {
    PollRunLoop loop;
    const Pipe pipe;
    bool told = false;
    const auto token = loop.watch(pipe.reader.get(), POLLIN, [&] { told = true; });
    std::function<void()> again = [&] { loop.executor().post([&] { again(); }); };
    again();
    EXPECT_TRUE(loop.runUntil([&] { return told; }, longEnough));
    EXPECT_FALSE(loop.runUntil([] { return false; }, Duration::zero()));
}

TEST(PollRunLoop, a_limit_that_has_passed_ends_the_run) {
    PollRunLoop loop;
    EXPECT_FALSE(loop.runUntil([] { return false; }, Duration::zero()));
}

}  // namespace
}  // namespace vtx::test
