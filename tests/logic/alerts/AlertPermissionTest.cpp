// SPDX-License-Identifier: MIT
// The right to notify, and what goes wrong on the way to the user.
#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "support/AlertsBench.h"

namespace vtx {
namespace {

/// A service that is made when the test has arranged the user's answer.
struct Asking : AppBench {
    SimulatedUserNotificationCenter& center = platform.userNotifications;
    std::optional<AlertsService> alerts;

    void make(UserNotificationCenter* passedIn = nullptr) {
        alerts.emplace(ports(), main, passedIn);
        settle();
    }
    /// A processor over its threshold for as long as it takes.
    void burn() {
        AlertRules rules;
        rules.cpu = {true, 0.5};
        CPUStats cpu;
        cpu.totalUsage = 1.0;
        for (int second = 0; second <= 20; ++second) {
            alerts->evaluate(rules, cpu, {}, {}, {}, {});
            advance(seconds(1));
        }
    }
    [[nodiscard]] std::size_t requests() const {
        return platform.calls(operations::requestAuthorization);
    }
};

TEST(AlertPermission, is_asked_for_once_and_published) {
    Asking a;
    a.make();
    EXPECT_TRUE(*a.alerts->permissionGranted);
    a.burn();
    EXPECT_EQ(a.requests(), 1U);
    EXPECT_EQ(a.center.posted().size(), 1U);
}

TEST(AlertPermission, denied_is_logged_and_nothing_is_ever_sent) {
    Asking a;
    a.center.isGranted = false;
    a.make();
    a.center.isGranted = true;
    a.burn();
    EXPECT_FALSE(*a.alerts->permissionGranted);
    EXPECT_TRUE(a.center.posted().empty());
    EXPECT_EQ(a.requests(), 1U);
    EXPECT_EQ(a.log.count(LogLevel::standard, "Alerts",
                          "User denied notification permission — alerts disabled"),
              1U);
}

TEST(AlertPermission, an_error_beside_a_grant_counts_as_denied) {
    Asking a;
    a.failures.failNext(operations::requestAuthorization);
    a.failures.failNext(operations::requestAuthorizationGranted);
    a.make();
    EXPECT_FALSE(a.failures.hasUnused());
    EXPECT_FALSE(*a.alerts->permissionGranted);
    a.burn();
    EXPECT_TRUE(a.center.posted().empty());
}

TEST(AlertPermission, a_request_that_fails_is_logged_as_an_error_and_counts_as_denied) {
    Asking a;
    a.failures.failNext(operations::requestAuthorization);
    a.make();
    a.burn();
    EXPECT_FALSE(*a.alerts->permissionGranted);
    EXPECT_TRUE(a.center.posted().empty());
    EXPECT_TRUE(a.log.contains(LogLevel::error, "Alerts",
                               "requestAuthorization failed: notification error 5"));
    EXPECT_FALSE(a.log.contains("denied"));
}

TEST(AlertPermission, no_time_runs_before_the_answer) {
    Asking a;
    a.center.hold();
    a.make();
    a.burn();
    a.center.answer();
    a.settle();
    EXPECT_TRUE(*a.alerts->permissionGranted);
    EXPECT_TRUE(a.center.posted().empty());
    a.burn();
    EXPECT_EQ(a.center.posted().size(), 1U);
}

TEST(AlertPermission, a_test_harness_has_no_centre) {
    Asking a;
    a.mac.environment["XCTestConfigurationFilePath"] = "";
    a.make();
    EXPECT_EQ(a.requests(), 0U);
    EXPECT_FALSE(*a.alerts->permissionGranted);
    a.alerts->permissionGranted = true;
    a.burn();
    EXPECT_TRUE(a.center.posted().empty());
}

TEST(AlertPermission, a_centre_that_is_passed_in_is_used_and_not_asked) {
    Asking a;
    Instruments instruments;
    SimulatedUserNotificationCenter own(instruments);
    a.make(&own);
    EXPECT_EQ(a.requests() + instruments.counter.totalCalls(), 0U);
    a.burn();
    EXPECT_TRUE(own.posted().empty());
    a.alerts->permissionGranted = true;
    a.burn();
    EXPECT_EQ(own.posted().size(), 1U);
    EXPECT_TRUE(a.center.posted().empty());
}

TEST(AlertPermission, an_answer_that_comes_after_the_service_has_gone_harms_nothing) {
    Asking a;
    a.center.hold();
    a.make();
    a.alerts.reset();
    a.center.answer();
    a.settle();
    EXPECT_TRUE(a.center.posted().empty());
}

TEST(AlertDelivery, is_logged_when_it_went_well) {
    AlertsBench a;
    a.rules.cpu = {true, 0.5};
    a.setCPU(1.0);
    a.rounds(0, 10);
    EXPECT_EQ(a.logged(LogLevel::info, "Alert fired: cpu"), 1U);
}

TEST(AlertDelivery, that_fails_is_logged_and_not_tried_again) {
    AlertsBench a;
    a.failures.failNext(operations::addNotificationRequest);
    a.rules.cpu = {true, 0.5};
    a.setCPU(1.0);
    a.rounds(0, 60);
    EXPECT_EQ(a.sent(), 0U);
    EXPECT_EQ(a.logged(LogLevel::error, "Notification add failed: notification error 5"), 1U);
    EXPECT_FALSE(a.log.contains("Alert fired"));
}

TEST(AlertDelivery, that_takes_long_holds_no_evaluation) {
    AlertsBench a;
    a.center.hold();
    a.rules.cpu = {true, 0.5};
    a.rules.gpu = {true, 0.5};
    a.setCPU(1.0);
    a.rounds(0, 10);
    a.setGPU(1.0);
    a.rounds(11, 30);
    EXPECT_EQ(a.sent(), 2U);
    EXPECT_FALSE(a.log.contains("Alert fired"));
    a.center.answer();
    a.settle();
    EXPECT_EQ(a.logged(LogLevel::info, "Alert fired: cpu"), 1U);
    EXPECT_EQ(a.logged(LogLevel::info, "Alert fired: gpu"), 1U);
}

TEST(AlertDelivery, happens_behind_the_evaluation) {
    AlertsBench a;
    a.rules.cpu = {true, 0.5};
    a.setCPU(1.0);
    a.rounds(0, 9);
    a.clock.advanceBy(seconds(1));
    a.alerts.evaluate(a.rules, a.cpu, {}, {}, {}, {});
    EXPECT_EQ(a.sent(), 0U);
    a.settle();
    EXPECT_EQ(a.sent(), 1U);
}

}  // namespace
}  // namespace vtx
