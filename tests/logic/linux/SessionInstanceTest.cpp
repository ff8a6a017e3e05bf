// SPDX-License-Identifier: MIT
#include "platform/linux/SessionInstance.h"

#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include <thread>

#include "linux/PrivateBus.h"
#include "platform/linux/PollRunLoop.h"
#include "support/TestBench.h"

namespace vtx::test {
namespace {

using Claim = SessionInstance::Claim;

constexpr Duration longEnough = std::chrono::seconds(60);
constexpr auto name = "com.example.app";

class SessionInstanceTest : public testing::Test {
protected:
    void SetUp() override {
        if (!bus.isRunning()) GTEST_SKIP() << "this machine has no dbus-daemon";
    }
    /// A second start in a process of its own, as far as this one goes.
    [[nodiscard]] Claim claimBeside(PollRunLoop& running) {
        std::optional<Claim> claimed;
        std::jthread other([&] {
            SessionInstance second(name, bus.address());
            const Claim claim = second.claim();
            running.executor().post([&claimed, claim] { claimed = claim; });
        });
        EXPECT_TRUE(running.runUntil([&] { return claimed.has_value(); }, longEnough));
        return claimed.value_or(Claim::noBus);
    }

    PrivateBus bus;
    PollRunLoop loop;
};

TEST_F(SessionInstanceTest, the_first_start_has_the_session) {
    EXPECT_EQ(SessionInstance(name, bus.address()).claim(), Claim::first);
}

TEST_F(SessionInstanceTest, a_second_start_asks_the_first_to_show_itself) {
    SessionInstance first(name, bus.address());
    ASSERT_EQ(first.claim(), Claim::first);
    int shown = 0;
    first.listen(loop, loop.executor(), [&shown] { ++shown; });
    for (int start = 1; start <= 2; ++start) {
        EXPECT_EQ(claimBeside(loop), Claim::handedOver);
        EXPECT_EQ(shown, start);
    }
}

TEST_F(SessionInstanceTest, a_start_while_the_first_one_is_still_starting_is_heard_later) {
    SessionInstance first(name, bus.address());
    ASSERT_EQ(first.claim(), Claim::first);
    std::optional<Claim> claimed;
    std::jthread other([&] {
        SessionInstance second(name, bus.address());
        const Claim claim = second.claim();
        loop.executor().post([&claimed, claim] { claimed = claim; });
    });
    bool shown = false;
    first.listen(loop, loop.executor(), [&shown] { shown = true; });
    EXPECT_TRUE(loop.runUntil([&] { return claimed.has_value(); }, longEnough));
    EXPECT_EQ(claimed, Claim::handedOver);
    EXPECT_TRUE(shown);
}

TEST_F(SessionInstanceTest, once_the_first_has_ended_the_next_start_is_the_first) {
    {
        SessionInstance first(name, bus.address());
        ASSERT_EQ(first.claim(), Claim::first);
    }
    EXPECT_EQ(SessionInstance(name, bus.address()).claim(), Claim::first);
}

TEST_F(SessionInstanceTest, a_start_that_asks_one_which_is_just_ending_takes_its_place) {
    std::unique_ptr<FakeService> ending;
    int asked = 0;
    ending = std::make_unique<FakeService>(loop, bus.address(), name, "/com/example/app",
                                           [&](sd_bus_message*) {
                                               ++asked;
                                               loop.executor().post([&ending] { ending.reset(); });
                                               return 1;  // taken, and never answered
                                           });
    EXPECT_EQ(claimBeside(loop), Claim::first);
    EXPECT_EQ(asked, 1);
}

TEST_F(SessionInstanceTest, programs_of_another_name_run_beside_it) {
    SessionInstance first(name, bus.address()), other("com.example.other", bus.address());
    EXPECT_EQ(first.claim(), Claim::first);
    EXPECT_EQ(other.claim(), Claim::first);
}

TEST_F(SessionInstanceTest, one_that_runs_and_knows_no_such_call_is_told_apart) {
    const FakeService stranger(loop, bus.address(), name, "/elsewhere");
    EXPECT_EQ(claimBeside(loop), Claim::unanswered);
}

TEST(SessionInstance, without_a_bus_each_start_is_for_itself_and_says_so_once) {
    TestBench bench;
    const TemporaryTree folder;
    PollRunLoop loop;
    SessionInstance instance(name, "unix:path=" + folder.path() + "/none");
    EXPECT_EQ(instance.claim(), Claim::noBus);
    instance.listen(loop, loop.executor(), [] { FAIL(); });
    loop.runReady();
    EXPECT_TRUE(
        bench.log.contains(LogLevel::standard, "SessionInstance",
                           "There is no session bus: a second start will not find this one"));
}

TEST(SessionInstance, one_that_claims_nothing_is_silent) {
    TestBench bench;
    PollRunLoop loop;
    SessionInstance instance(name, "unix:path=/nonexistent/bus");
    instance.listen(loop, loop.executor(), [] { FAIL(); });
    EXPECT_TRUE(bench.log.lines().empty());
}

}  // namespace
}  // namespace vtx::test
