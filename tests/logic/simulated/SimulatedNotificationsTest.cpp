// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "platform/simulated/SimulatedUserNotificationCenter.h"

namespace vtx {
namespace {

struct Notified {
    Instruments instruments;
    SimulatedUserNotificationCenter center{instruments};
    int answers = 0;
    void add(const std::string& identifier, const std::string& body) {
        center.add({identifier, "title", body}, [this](const auto&) { ++answers; });
    }
};

TEST(SimulatedNotifications, a_newer_one_takes_the_place_of_the_older_one_in_the_list) {
    Notified n;
    n.add("a", "first");
    n.add("b", "other");
    n.add("a", "second");
    EXPECT_EQ(n.center.posted().size(), 3U);
    ASSERT_EQ(n.center.shown().size(), 2U);
    EXPECT_EQ(n.center.shown()[0].body, "second");
    EXPECT_EQ(n.center.shown()[1].body, "other");
}

TEST(SimulatedNotifications, what_fails_is_not_posted) {
    Notified n;
    n.instruments.failures.failNext(operations::addNotificationRequest, 1, 3);
    std::optional<std::string> error;
    n.center.add({"a", "title", "body"}, [&](const auto& e) { error = e; });
    EXPECT_EQ(error, "notification error 3");
    EXPECT_TRUE(n.center.posted().empty());
}

TEST(SimulatedNotifications, answers_wait_while_they_are_held_and_are_told_once) {
    Notified n;
    n.center.hold();
    n.add("a", "first");
    EXPECT_EQ(n.answers, 0);
    n.center.answer();
    n.center.answer();
    n.add("b", "second");
    EXPECT_EQ(n.answers, 2);
}

}  // namespace
}  // namespace vtx
