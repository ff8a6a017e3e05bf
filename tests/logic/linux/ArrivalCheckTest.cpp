// SPDX-License-Identifier: MIT
#include "platform/linux/ArrivalCheck.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

namespace vtx::test {
namespace {

struct ArrivalCheckTest : testing::Test {
    void SetUp() override {
        std::array<int, 2> pair{};
        ASSERT_EQ(::socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0, pair.data()), 0);
        socket = FileDescriptor(pair[0]);
        peer = FileDescriptor(pair[1]);
    }
    FileDescriptor socket;
    FileDescriptor peer;
};

TEST_F(ArrivalCheckTest, says_what_waits_until_it_is_taken) {
    const ArrivalCheck check(socket);
    EXPECT_FALSE(check.mayReceive());
    ASSERT_EQ(::send(peer.get(), "x", 1, 0), 1);
    for (int round = 0; round < 3; ++round) EXPECT_TRUE(check.mayReceive());
    char byte = 0;
    ASSERT_EQ(::recv(socket.get(), &byte, 1, 0), 1);
    EXPECT_FALSE(check.mayReceive());
}

TEST_F(ArrivalCheckTest, says_what_waited_before_it_began) {
    ASSERT_EQ(::send(peer.get(), "x", 1, 0), 1);
    EXPECT_TRUE(ArrivalCheck(socket).mayReceive());
}

TEST_F(ArrivalCheckTest, where_nothing_can_be_told_something_may_wait) {
    EXPECT_TRUE(ArrivalCheck().mayReceive());
    EXPECT_TRUE(ArrivalCheck(FileDescriptor()).mayReceive());
}

}  // namespace
}  // namespace vtx::test
