// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserNotificationCenter.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "linux/FakeNotificationServer.h"
#include "platform/linux/PollRunLoop.h"
#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedUnifiedLog.h"

namespace vtx::test {
namespace {

using Authorization = UserNotificationCenter::Authorization;
using Manner = FakeNotificationServer::Manner;

constexpr Duration longEnough = std::chrono::seconds(60);
constexpr auto serverName = "org.freedesktop.Notifications";
constexpr auto noNumbers = "The notification server gives its notifications no numbers";

/// What one call was told: nothing yet, or whether it went well.
struct Outcome {
    bool isTold = false;
    std::optional<std::string> error;
};

TEST(LinuxUserNotificationCenter, without_a_session_the_right_is_denied) {
    ManualClock clock;
    LinuxUserNotificationCenter center(nullptr, clock);
    std::optional<Authorization> told;
    center.requestAuthorization([&](const auto& answer) { told = answer; });
    ASSERT_TRUE(told);
    EXPECT_FALSE(told->isGranted || told->error);
    std::optional<std::string> error;
    center.add({"a", "title", "body"}, [&](const auto& e) { error = e; });
    EXPECT_TRUE(error);
}

TEST(LinuxUserNotificationCenter, where_nobody_listens_at_the_address_the_right_is_denied) {
    PollRunLoop loop;
    ManualClock clock;
    SystemBus session(loop, loop.executor(), "none");
    LinuxUserNotificationCenter center(&session, clock);
    std::optional<Authorization> told;
    center.requestAuthorization([&](const auto& answer) { told = answer; });
    ASSERT_TRUE(told);
    EXPECT_FALSE(told->isGranted || told->error);
    std::optional<std::string> error;
    center.add({"a", "title", "body"}, [&](const auto& e) { error = e; });
    EXPECT_TRUE(error);
    EXPECT_TRUE(clock.pending().empty());
}

struct NotificationTest : testing::Test {
    explicit NotificationTest(const std::vector<std::string>& startable = {})
        : daemon(startable), previousSink(AppLog::install(&log)) {}
    ~NotificationTest() override { AppLog::install(previousSink); }
    void SetUp() override {
        if (!daemon.isRunning()) GTEST_SKIP() << "this machine has no dbus-daemon";
    }
    [[nodiscard]] bool until(const std::function<bool()>& done) {
        return loop.runUntil(done, longEnough);
    }

    void startServer() {
        server = std::make_unique<FakeNotificationServer>(loop, daemon.address());
    }
    Authorization ask() {
        std::optional<Authorization> told;
        center->requestAuthorization([&](const auto& answer) { told = answer; });
        EXPECT_TRUE(until([&] { return told.has_value(); }));
        return told.value_or(Authorization{});
    }
    std::shared_ptr<Outcome> add(NotificationRequest request) {
        auto outcome = std::make_shared<Outcome>();
        center->add(request, [outcome](auto error) {
            EXPECT_FALSE(outcome->isTold);
            *outcome = {true, std::move(error)};
        });
        return outcome;
    }
    /// Posts and waits for the end of it.
    std::optional<std::string> post(const std::string& identifier,
                                    const std::string& body = "body") {
        const auto outcome = add({identifier, "title", body});
        EXPECT_TRUE(until([&] { return outcome->isTold; }));
        EXPECT_TRUE(clock.pending().empty());
        return outcome->error;
    }
    [[nodiscard]] std::size_t lines() const {
        return log.lines("LinuxUserNotificationCenter").size();
    }

    PrivateBus daemon;
    PollRunLoop loop;
    ManualClock clock;
    SimulatedUnifiedLog log;
    LogSink* previousSink;
    SystemBus session{loop, loop.executor(), daemon.address()};
    std::unique_ptr<FakeNotificationServer> server;
    std::unique_ptr<LinuxUserNotificationCenter> center =
        std::make_unique<LinuxUserNotificationCenter>(&session, clock);
};

TEST_F(NotificationTest, a_server_that_runs_grants_the_right) {
    startServer();
    const Authorization told = ask();
    EXPECT_TRUE(told.isGranted);
    EXPECT_FALSE(told.error);
    EXPECT_EQ(server->questions, 0) << "it need not answer for it";
}

TEST_F(NotificationTest, no_server_denies_the_right) {
    const Authorization told = ask();
    EXPECT_FALSE(told.isGranted || told.error);
    EXPECT_TRUE(clock.pending().empty());
}

struct StartableNotificationTest : NotificationTest {
    StartableNotificationTest() : NotificationTest({serverName}) {}
};

TEST_F(StartableNotificationTest, a_server_that_could_be_started_grants_the_right) {
    EXPECT_TRUE(ask().isGranted);
}

TEST_F(StartableNotificationTest, a_server_that_fails_to_start_fails_the_notification) {
    EXPECT_TRUE(post("cpu"));
}

TEST_F(NotificationTest, is_shown_with_what_the_user_needs_to_know_it) {
    startServer();
    EXPECT_EQ(post("cpu", "CPU at 93%"), std::nullopt);
    ASSERT_EQ(server->notes.size(), 1U);
    const auto& note = server->notes[0];
    EXPECT_EQ(note.application, "Vantrix");
    EXPECT_EQ(note.icon, "utilities-system-monitor");
    EXPECT_EQ(note.title, "title");
    EXPECT_EQ(note.body, "CPU at 93%");
    EXPECT_EQ(note.hints, std::vector<std::string>{"urgency=1"});
    EXPECT_EQ(note.actions, 0U);
    EXPECT_EQ(note.expiry, -1);
}

TEST_F(NotificationTest, makes_a_sound_where_the_server_can) {
    startServer();
    server->capabilities = {"body", "sound"};
    EXPECT_EQ(post("cpu"), std::nullopt);
    EXPECT_EQ(server->notes.at(0).hints,
              (std::vector<std::string>{"urgency=1", "sound-name=dialog-warning"}));
}

TEST_F(NotificationTest, the_body_is_escaped_only_where_the_server_reads_markup) {
    startServer();
    EXPECT_EQ(post("cpu", "a < b & \"c\" > d"), std::nullopt);
    server->capabilities = {"body-markup"};
    EXPECT_EQ(post("cpu", "a < b & \"c\" > d"), std::nullopt);
    EXPECT_EQ(server->notes.at(0).body, "a < b & \"c\" > d");
    EXPECT_EQ(server->notes.at(1).body, "a &lt; b &amp; \"c\" &gt; d");
}

TEST_F(NotificationTest, a_newer_one_replaces_the_older_one_of_the_same_identifier_alone) {
    startServer();
    EXPECT_EQ(post("cpu"), std::nullopt);
    server->nextId = 8;
    EXPECT_EQ(post("gpu"), std::nullopt);
    server->nextId = 7;
    EXPECT_EQ(post("cpu"), std::nullopt);
    EXPECT_EQ(server->notes.at(0).replaces, 0U);
    EXPECT_EQ(server->notes.at(1).replaces, 0U);
    EXPECT_EQ(server->notes.at(2).replaces, 7U);
}

TEST_F(NotificationTest, the_number_that_a_server_gives_is_taken_whatever_it_is) {
    startServer();
    server->nextId = 0xFFFF'FFFFU;
    EXPECT_EQ(post("cpu"), std::nullopt);
    server->nextId = 12;  // it forgot the old one
    EXPECT_EQ(post("cpu"), std::nullopt);
    EXPECT_EQ(post("cpu"), std::nullopt);
    EXPECT_EQ(server->notes.at(1).replaces, 0xFFFF'FFFFU);
    EXPECT_EQ(server->notes.at(2).replaces, 12U);
}

TEST_F(NotificationTest, replaces_nothing_of_a_server_that_was_started_again) {
    startServer();
    EXPECT_EQ(post("cpu"), std::nullopt);
    server.reset();
    startServer();
    EXPECT_EQ(post("cpu"), std::nullopt);
    EXPECT_EQ(post("cpu"), std::nullopt);
    EXPECT_EQ(server->notes.at(0).replaces, 0U);
    EXPECT_EQ(server->notes.at(1).replaces, 7U);
}

TEST_F(NotificationTest, a_server_that_refuses_is_quoted) {
    startServer();
    server->aboutNotes = Manner::refuses;
    EXPECT_EQ(post("cpu"), "no room for it");
    server->aboutNotes = Manner::sane;
    EXPECT_EQ(post("cpu"), std::nullopt);
}

TEST_F(NotificationTest, a_server_that_tells_no_capabilities_is_given_the_plainest_form) {
    startServer();
    for (const Manner manner : {Manner::refuses, Manner::talksNonsense, Manner::saysNothing}) {
        server->aboutCapabilities = manner;
        EXPECT_EQ(post("cpu", "a < b"), std::nullopt);
        EXPECT_EQ(server->notes.back().body, "a < b");
        EXPECT_EQ(server->notes.back().hints.size(), 1U);
    }
}

TEST_F(NotificationTest, a_server_without_sane_numbers_is_logged_once_and_replaces_nothing) {
    startServer();
    server->nextId = 0;
    EXPECT_EQ(post("cpu"), std::nullopt);
    for (const Manner manner : {Manner::talksNonsense, Manner::saysNothing}) {
        server->aboutNotes = manner;
        EXPECT_EQ(post("cpu"), std::nullopt);
        EXPECT_EQ(server->notes.back().replaces, 0U);
    }
    EXPECT_EQ(log.count(LogLevel::standard, "LinuxUserNotificationCenter", noNumbers), 1U);
    EXPECT_EQ(lines(), 1U);
}

TEST_F(NotificationTest, a_server_that_loses_its_mind_again_is_logged_again) {
    startServer();
    for (const Manner manner : {Manner::saysNothing, Manner::sane, Manner::saysNothing}) {
        server->aboutNotes = manner;
        EXPECT_EQ(post("cpu"), std::nullopt);
    }
    EXPECT_EQ(lines(), 2U);
}

TEST_F(NotificationTest, a_server_that_hangs_fails_it_after_a_while) {
    startServer();
    server->aboutCapabilities = server->aboutNotes = Manner::silent;
    const auto outcome = add({"cpu", "title", "body"});
    ASSERT_TRUE(until([&] { return server->questions == 1; }));
    clock.advanceBy(PatientCall::patience);
    ASSERT_TRUE(until([&] { return server->notes.size() == 1; }));
    EXPECT_FALSE(outcome->isTold);
    clock.advanceBy(PatientCall::patience);
    EXPECT_EQ(outcome->error, "there was no answer in time");
    server->aboutCapabilities = server->aboutNotes = Manner::sane;
    EXPECT_EQ(post("cpu"), std::nullopt);
}

TEST_F(NotificationTest, one_that_hangs_holds_no_other) {
    startServer();
    server->aboutNotes = Manner::silent;
    const auto hanging = add({"cpu", "title", "body"});
    ASSERT_TRUE(until([&] { return server->notes.size() == 1; }));
    server->aboutNotes = Manner::sane;
    const auto other = add({"gpu", "title", "body"});
    ASSERT_TRUE(until([&] { return other->isTold; }));
    EXPECT_FALSE(other->error);
    EXPECT_FALSE(hanging->isTold);
}

TEST_F(NotificationTest, a_server_that_dies_between_the_two_questions_fails_it) {
    startServer();
    const auto outcome = add({"cpu", "title", "body"});
    ASSERT_TRUE(until([&] { return server->questions == 1; }));
    server.reset();
    ASSERT_TRUE(until([&] { return outcome->isTold; }));
    EXPECT_TRUE(outcome->error);
}

TEST_F(NotificationTest, a_server_that_dies_over_a_notification_fails_it) {
    startServer();
    server->aboutNotes = Manner::silent;
    const auto outcome = add({"cpu", "title", "body"});
    ASSERT_TRUE(until([&] { return server->notes.size() == 1; }));
    server.reset();
    ASSERT_TRUE(until([&] { return outcome->isTold; }));
    EXPECT_TRUE(outcome->error);
    startServer();
    EXPECT_EQ(post("cpu"), std::nullopt);
}

TEST_F(NotificationTest, without_a_server_it_fails) {
    EXPECT_TRUE(post("cpu"));
    EXPECT_EQ(lines(), 0U) << "whoever posted it says so";
}

TEST_F(NotificationTest, a_text_that_is_no_text_fails) {
    startServer();
    EXPECT_TRUE(post("cpu", "\xff\xfe"));
    EXPECT_TRUE(server->notes.empty());
}

TEST_F(NotificationTest, what_was_under_way_is_forgotten_with_the_centre) {
    startServer();
    const auto outcome = add({"cpu", "title", "body"});
    ASSERT_TRUE(until([&] { return server->questions == 1; }));
    center.reset();
    clock.advanceBy(PatientCall::patience);
    loop.runReady();
    EXPECT_FALSE(outcome->isTold);
    EXPECT_TRUE(clock.pending().empty());
}

TEST_F(NotificationTest, a_bus_that_goes_fails_what_was_under_way_and_what_comes_later) {
    auto other = std::make_unique<PrivateBus>();
    SystemBus connection(loop, loop.executor(), other->address());
    center = std::make_unique<LinuxUserNotificationCenter>(&connection, clock);
    server = std::make_unique<FakeNotificationServer>(loop, other->address());
    server->aboutNotes = Manner::silent;
    const auto outcome = add({"cpu", "title", "body"});
    ASSERT_TRUE(until([&] { return server->notes.size() == 1; }));
    other.reset();
    ASSERT_TRUE(until([&] { return !connection.isOpen(); }));
    clock.advanceBy(PatientCall::patience);
    EXPECT_TRUE(outcome->error);
    EXPECT_TRUE(post("cpu"));
    center.reset();
}

TEST_F(NotificationTest, a_bus_that_gives_no_answer_fails_the_request_for_the_right) {
    // Nothing that the daemon sends is read meanwhile.
    std::optional<Authorization> told;
    center->requestAuthorization([&](const auto& answer) { told = answer; });
    clock.advanceBy(PatientCall::patience);
    ASSERT_TRUE(told);
    EXPECT_FALSE(told->isGranted);
    EXPECT_EQ(told->error, "there was no answer in time");
}

}  // namespace
}  // namespace vtx::test
