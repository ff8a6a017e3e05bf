// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSoftwareUpdater.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "linux/FakePackageKit.h"
#include "linux/PrivateBus.h"
#include "platform/linux/PollRunLoop.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedUnifiedLog.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "platform/simulated/SimulatedUserNotificationCenter.h"

namespace vtx::test {
namespace {

using Kind = UpdateAnswer::Kind;
using Manner = FakePackageKit::Manner;
using Calls = std::vector<std::string>;

constexpr Duration longEnough = std::chrono::seconds(60);
constexpr Duration minute = std::chrono::minutes(1);
constexpr Duration hour = std::chrono::hours(1);
constexpr Duration day = std::chrono::hours(24);
constexpr std::uint32_t installed = 1, normal = 5, blocked = 9;
constexpr auto own = "vantrix;1.0-1;amd64;installed:main";
constexpr auto newer = "vantrix;1.1-1;amd64;main";

TEST(PackageID, is_read_as_far_as_it_goes) {
    EXPECT_EQ(PackageID::parse("a;1;x;y;z"), (PackageID{"a", "1", "x"}));
    EXPECT_EQ(PackageID::parse("a;1"), (PackageID{"a", "1", ""}));
    for (const char* bad : {"", ";", "a", "a;", ";1;x;y"})
        EXPECT_EQ(PackageID::parse(bad), std::nullopt) << bad;
}

/// Everything around an updater but the bus.
struct Surroundings {
    PollRunLoop loop;
    ManualClock clock;
    Instruments instruments;
    SimulatedUserDefaults defaults;
    SimulatedUserNotificationCenter notifications{instruments};
};

TEST(LinuxSoftwareUpdater, without_a_bus_it_is_not_available_and_waits_for_nothing) {
    Surroundings around;
    SystemBus bus(around.loop, around.loop.executor(), "none");
    LinuxSoftwareUpdater updater({bus, around.clock, around.defaults, around.notifications}, "/v");
    updater.start();
    updater.setAutomaticallyChecksForUpdates(true);
    EXPECT_FALSE(updater.isAvailable());
    EXPECT_TRUE(around.clock.pending().empty());
    std::optional<UpdateAnswer> told;
    updater.checkForUpdates([&](const UpdateAnswer& answer) { told = answer; });
    EXPECT_EQ(told, (UpdateAnswer{.kind = Kind::failed}));
}

struct UpdaterTest : testing::Test {
    explicit UpdaterTest(const std::vector<std::string>& startable = {})
        : daemon(startable), previousSink(AppLog::install(&log)) {}
    ~UpdaterTest() override { AppLog::install(previousSink); }
    void SetUp() override {
        if (!daemon.isRunning()) GTEST_SKIP() << "this machine has no dbus-daemon";
    }

    [[nodiscard]] bool until(const std::function<bool()>& done) {
        return around.loop.runUntil(done, longEnough);
    }
    /// Runs until what was sent so far has been answered.
    void settle() {
        bool isAnswered = false;
        const auto fence = bus.call({"org.freedesktop.DBus", "/", "org.freedesktop.DBus"}, "GetId",
                                    {}, [&](BusMessage&) { isAnswered = true; });
        ASSERT_TRUE(until([&] { return isAnswered; }));
    }

    void startService() {
        service = std::make_unique<FakePackageKit>(around.loop, daemon.address());
        service->scripts["SearchFiles"].packages = {{installed, own}};
    }
    void startUpdater() {
        updater = std::make_unique<LinuxSoftwareUpdater>(
            LinuxSoftwareUpdater::Tools{bus, around.clock, around.defaults, around.notifications},
            "/usr/bin/vantrix");
        updater->start();
    }
    /// With the service and the updater that found it.
    void startBoth() {
        startService();
        startUpdater();
        ASSERT_TRUE(until([this] { return updater->isAvailable(); }));
    }
    /// Looks for a user.
    UpdateAnswer look() {
        std::optional<UpdateAnswer> told;
        updater->checkForUpdates([&](const UpdateAnswer& answer) { told = answer; });
        EXPECT_TRUE(until([&] { return told.has_value(); }));
        return told.value_or(UpdateAnswer{.kind = Kind::failed, .error = "nothing was told"});
    }
    /// Moves the clock and waits until a look that begins then is over.
    void lookAfter(Duration span) {
        const auto before = service->calls.size();
        around.clock.advanceBy(span);
        // Nothing is planned while it looks; what it waits for then is not so patient.
        ASSERT_TRUE(until([this] {
            const auto pending = around.clock.pending();
            return pending.size() == 1 && pending.front().tolerance > minute;
        }));
        EXPECT_GT(service->calls.size(), before);
    }
    [[nodiscard]] Duration nextLook() const {
        const auto pending = around.clock.pending();
        return pending.size() == 1 ? pending.front().deadline - around.clock.continuous()
                                   : Duration{};
    }

    PrivateBus daemon;
    Surroundings around;
    SimulatedUnifiedLog log;
    LogSink* previousSink;
    SystemBus bus{around.loop, around.loop.executor(), daemon.address()};
    std::unique_ptr<FakePackageKit> service;
    std::unique_ptr<LinuxSoftwareUpdater> updater;
};

TEST_F(UpdaterTest, where_there_is_no_packagekit_updates_come_with_the_system) {
    startUpdater();
    settle();
    settle();
    EXPECT_FALSE(updater->isAvailable());
    EXPECT_TRUE(around.clock.pending().empty());
}

struct StartableUpdaterTest : UpdaterTest {
    StartableUpdaterTest() : UpdaterTest({packageKit::serviceName}) {}
};

TEST_F(StartableUpdaterTest, one_that_the_bus_can_start_counts_before_it_runs) {
    startUpdater();
    EXPECT_TRUE(until([this] { return updater->isAvailable(); }));
}

TEST_F(StartableUpdaterTest, one_that_does_not_start_fails_in_words) {
    startUpdater();
    ASSERT_TRUE(until([this] { return updater->isAvailable(); }));
    const UpdateAnswer told = look();
    EXPECT_EQ(told.kind, Kind::failed);
    EXPECT_FALSE(told.error.empty());
}

TEST_F(UpdaterTest, one_that_comes_later_is_told_of) {
    startUpdater();
    int changes = 0;
    const auto watch = updater->onAvailabilityChange([&] { ++changes; });
    settle();
    settle();
    startService();
    EXPECT_TRUE(until([&] { return changes == 1; }));
    EXPECT_TRUE(updater->isAvailable());
}

TEST_F(UpdaterTest, a_newer_package_is_found_after_the_lists_were_fetched) {
    startBoth();
    service->scripts["GetUpdates"].packages = {{normal, "other;9;amd64;main"}, {normal, newer}};
    EXPECT_EQ(look(), (UpdateAnswer{.kind = Kind::available, .version = "1.1-1"}));
    EXPECT_EQ(service->calls,
              (Calls{"SearchFiles 4 /usr/bin/vantrix", "RefreshCache 0", "GetUpdates 2"}));
    EXPECT_EQ(service->hints, (Calls{"background=false", "interactive=true"}));
    EXPECT_TRUE(around.notifications.posted().empty()) << "whoever asked is told otherwise";
}

TEST_F(UpdaterTest, what_cannot_be_installed_or_is_another_package_is_no_update) {
    startBoth();
    service->scripts["GetUpdates"].packages = {{blocked, newer},
                                               {normal, "vantrix-doc;2;amd64;main"},
                                               {normal, "vantrix;1.1-1;i386;main"},
                                               {normal, "nonsense"}};
    EXPECT_EQ(look().kind, Kind::upToDate);
}

TEST_F(UpdaterTest, how_grave_an_update_is_does_not_matter) {
    startBoth();
    constexpr std::uint32_t grave = 8U << 16U;
    service->scripts["GetUpdates"].packages = {{grave | normal, newer}};
    EXPECT_EQ(look().kind, Kind::available);
    service->scripts["GetUpdates"].packages = {{grave | blocked, newer}};
    EXPECT_EQ(look().kind, Kind::upToDate);
}

TEST_F(UpdaterTest, a_program_of_no_package_has_no_lists_fetched_for_it) {
    startBoth();
    service->scripts["SearchFiles"].packages = {{2, "vantrix;1.0-1;amd64;main"}};
    EXPECT_EQ(look().kind, Kind::notPackaged);
    EXPECT_EQ(service->calls.size(), 1U);
}

TEST_F(UpdaterTest, a_failure_is_told_in_the_words_of_the_service_wherever_it_comes) {
    startBoth();
    for (const char* method : {"SearchFiles", "RefreshCache", "GetUpdates"}) {
        const auto before = service->scripts[method];
        service->scripts[method].manner = Manner::fails;
        EXPECT_EQ(look(), (UpdateAnswer{.kind = Kind::failed, .error = "the disk is full"}));
        service->scripts[method].manner = Manner::refuses;
        EXPECT_EQ(look(), (UpdateAnswer{.kind = Kind::failed, .error = "not allowed"}));
        service->scripts[method].manner = Manner::talksNonsense;
        EXPECT_EQ(look().kind, Kind::failed) << method;
        service->scripts[method] = before;
    }
    EXPECT_EQ(look().kind, Kind::upToDate);
    EXPECT_EQ(around.defaults.writes, 1) << "a failed look is none";
}

TEST_F(UpdaterTest, one_that_says_nothing_is_given_up) {
    startBoth();
    service->scripts["RefreshCache"].manner = Manner::isSilent;
    std::optional<UpdateAnswer> told;
    updater->checkForUpdates([&](const UpdateAnswer& answer) { told = answer; });
    ASSERT_TRUE(until([this] { return service->calls.size() == 2; }));
    settle();
    around.clock.advanceBy(PackageTransaction::patience);
    EXPECT_EQ(told, (UpdateAnswer{.kind = Kind::failed, .error = "there was no answer in time"}));
    EXPECT_TRUE(until([this] { return service->calls.back() == "Cancel"; }));
    EXPECT_TRUE(around.clock.pending().empty());
}

TEST_F(UpdaterTest, one_that_goes_away_meanwhile_has_failed) {
    startBoth();
    service->scripts["RefreshCache"].manner = Manner::isSilent;
    std::optional<UpdateAnswer> told;
    updater->checkForUpdates([&](const UpdateAnswer& answer) { told = answer; });
    ASSERT_TRUE(until([this] { return service->calls.size() == 2; }));
    service.reset();
    EXPECT_TRUE(until([&] { return told.has_value(); }));
    EXPECT_EQ(told->kind, Kind::failed);
}

TEST_F(UpdaterTest, a_second_question_meanwhile_is_answered_with_the_first) {
    startBoth();
    int answers = 0;
    const auto count = [&](const UpdateAnswer&) { ++answers; };
    updater->checkForUpdates(count);
    ASSERT_TRUE(until([this] { return service->calls.size() == 2; }));
    updater->checkForUpdates(count);
    EXPECT_TRUE(until([&] { return answers == 2; }));
    EXPECT_EQ(service->calls.size(), 3U);
}

TEST_F(UpdaterTest, an_updater_that_goes_meanwhile_tells_nobody) {
    startBoth();
    updater->checkForUpdates([](const UpdateAnswer&) { FAIL(); });
    updater.reset();
    settle();
    EXPECT_TRUE(around.clock.pending().empty());
}

TEST_F(UpdaterTest, at_first_it_does_not_look_by_itself) {
    startBoth();
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    EXPECT_TRUE(around.clock.pending().empty());
}

TEST_F(UpdaterTest, switched_on_it_looks_once_a_day_and_notifies_of_what_it_finds) {
    startBoth();
    updater->setAutomaticallyChecksForUpdates(true);
    EXPECT_EQ(nextLook(), minute);
    lookAfter(minute);
    EXPECT_EQ(service->hints, (Calls{"background=true", "interactive=false"}));
    EXPECT_TRUE(around.notifications.posted().empty());
    EXPECT_EQ(nextLook(), day);
    service->scripts["GetUpdates"].packages = {{normal, newer}};
    lookAfter(day);
    ASSERT_EQ(around.notifications.posted().size(), 1U);
    EXPECT_EQ(around.notifications.posted()[0].title, "Vantrix 1.1-1 is available");
    EXPECT_EQ(nextLook(), day);
}

TEST_F(UpdaterTest, switched_off_it_waits_for_nothing) {
    startBoth();
    updater->setAutomaticallyChecksForUpdates(true);
    updater->setAutomaticallyChecksForUpdates(false);
    EXPECT_TRUE(around.clock.pending().empty());
}

TEST_F(UpdaterTest, switched_on_again_it_keeps_to_its_time) {
    startBoth();
    updater->setAutomaticallyChecksForUpdates(true);
    around.clock.advanceBy(minute / 2);
    updater->setAutomaticallyChecksForUpdates(true);
    EXPECT_EQ(nextLook(), minute / 2);
}

TEST_F(UpdaterTest, a_switch_meanwhile_plans_no_second_look) {
    startBoth();
    std::optional<UpdateAnswer> answer;
    updater->checkForUpdates([&](const UpdateAnswer& found) { answer = found; });
    updater->setAutomaticallyChecksForUpdates(true);
    ASSERT_TRUE(until([&] { return answer.has_value(); }));
    EXPECT_EQ(nextLook(), day);
}

TEST_F(UpdaterTest, the_switch_and_the_last_look_outlive_the_program) {
    startBoth();
    updater->setAutomaticallyChecksForUpdates(true);
    EXPECT_EQ(look().kind, Kind::upToDate);
    around.clock.advanceBy(5 * hour);
    startUpdater();
    ASSERT_TRUE(until([this] { return updater->isAvailable(); }));
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
    EXPECT_EQ(nextLook(), day - 5 * hour);
}

TEST_F(UpdaterTest, a_last_look_that_cannot_be_is_none) {
    around.defaults.setData(LinuxSoftwareUpdater::automaticKey, toData("true"));
    for (const char* stored : {"1736950000", "99999999999999", "-5", "yesterday", "", "1e3"}) {
        around.defaults.setData(LinuxSoftwareUpdater::lastLookKey, toData(stored));
        startBoth();
        EXPECT_EQ(nextLook(), minute) << stored;
        updater.reset();
        service.reset();
    }
}

TEST_F(UpdaterTest, a_look_that_failed_is_tried_again_in_an_hour_and_logged_once) {
    startBoth();
    service->scripts["RefreshCache"].manner = Manner::fails;
    updater->setAutomaticallyChecksForUpdates(true);
    lookAfter(minute);
    EXPECT_EQ(nextLook(), hour);
    lookAfter(hour);
    EXPECT_EQ(log.lines("LinuxSoftwareUpdater").size(), 1U);
    service->scripts["RefreshCache"].manner = Manner::succeeds;
    lookAfter(hour);
    EXPECT_EQ(nextLook(), day);
    EXPECT_EQ(log.lines("LinuxSoftwareUpdater").size(), 2U);
}

}  // namespace
}  // namespace vtx::test
