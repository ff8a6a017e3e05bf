// SPDX-License-Identifier: MIT
#include "platform/linux/PatientCall.h"

#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include "linux/PrivateBus.h"
#include "platform/linux/PollRunLoop.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {
namespace {

constexpr Duration longEnough = std::chrono::seconds(60);
const BusObject object{"org.example.Service", "/org/example", "org.example.Service"};

struct PatientCallTest : testing::Test {
    void SetUp() override {
        if (!daemon.isRunning()) GTEST_SKIP() << "this machine has no dbus-daemon";
    }
    void TearDown() override { sd_bus_message_unref(unanswered); }
    /// Keeps the call, for the test to answer it.
    int keep(sd_bus_message* message) {
        unanswered = sd_bus_message_ref(message);
        return 1;
    }

    PrivateBus daemon;
    PollRunLoop loop;
    ManualClock clock;
    SystemBus bus{loop, loop.executor(), daemon.address()};
    sd_bus_message* unanswered = nullptr;
    FakeService service{loop, daemon.address(), object.service, object.path,
                        [this](sd_bus_message* message) { return keep(message); }};
    int answers = 0, failures = 0;
    PatientCall call{bus, clock};

    void start() {
        call.start({object, "Ask", {}},
                   [this](BusMessage& answer) { ++(answer.isFailure() ? failures : answers); });
        EXPECT_TRUE(loop.runUntil([this] { return unanswered != nullptr; }, longEnough));
    }
    /// Runs until what was sent so far has arrived.
    void settle() {
        bool isAnswered = false;
        const auto fence = bus.call({"org.freedesktop.DBus", "/", "org.freedesktop.DBus"}, "GetId",
                                    {}, [&](BusMessage&) { isAnswered = true; });
        ASSERT_TRUE(loop.runUntil([&] { return isAnswered; }, longEnough));
    }
};

TEST_F(PatientCallTest, an_answer_in_time_ends_the_waiting) {
    start();
    clock.advanceBy(PatientCall::patience - seconds(1));
    sd_bus_reply_method_return(unanswered, "");
    EXPECT_TRUE(loop.runUntil([this] { return answers == 1; }, longEnough));
    EXPECT_TRUE(clock.pending().empty());
    EXPECT_EQ(failures, 0);
}

TEST_F(PatientCallTest, an_answer_that_comes_later_is_ignored) {
    start();
    clock.advanceBy(PatientCall::patience);
    EXPECT_EQ(failures, 1);
    sd_bus_reply_method_return(unanswered, "");
    settle();
    EXPECT_EQ(answers, 0);
    EXPECT_EQ(failures, 1);
}

}  // namespace
}  // namespace vtx::test
