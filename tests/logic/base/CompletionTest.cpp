// SPDX-License-Identifier: MIT
#include "base/Completion.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/QueueExecutor.h"
#include "base/TaskScope.h"

namespace vtx {
namespace {

/// A task that waits for an operation which the test lets call back.
struct Waiting {
    QueueExecutor home;
    Completion<std::string>::Handler told;
    std::vector<std::string> results;
    std::optional<TaskScope> tasks{std::in_place, home};

    void start() {
        tasks->spawn([this](std::stop_token) { return wait(); });
        home.drain();
    }
    Task<> wait() {
        Completion<std::string> answer([this](auto handler) { told = std::move(handler); });
        results.push_back(co_await answer);
    }
};

TEST(Completion, a_task_goes_on_with_the_result_on_its_executor) {
    Waiting w;
    w.start();
    w.told("yes");
    EXPECT_TRUE(w.results.empty());
    w.home.drain();
    EXPECT_EQ(w.results, std::vector<std::string>{"yes"});
}

TEST(Completion, an_operation_may_call_back_before_it_returns) {
    QueueExecutor home;
    TaskScope tasks(home);
    int result = 0;
    const auto wait = [&result]() -> Task<> {
        Completion<int> answer([](const auto& handler) { handler(7); });
        result = co_await answer;
    };
    tasks.spawn([&wait](std::stop_token) { return wait(); });
    home.drain();
    EXPECT_EQ(result, 7);
}

TEST(Completion, a_second_result_is_ignored) {
    Waiting w;
    w.start();
    w.told("first");
    w.told("second");
    w.home.drain();
    w.told("third");
    w.home.drain();
    EXPECT_EQ(w.results, std::vector<std::string>{"first"});
}

TEST(Completion, a_result_for_a_task_that_has_gone_is_dropped) {
    Waiting w;
    w.start();
    w.told("under way");
    w.tasks.reset();
    w.told("late");
    w.home.drain();
    EXPECT_TRUE(w.results.empty());
}

TEST(Completion, an_operation_that_never_begins_is_told_nobody) {
    bool begun = false;
    {
        const Completion<int> answer([&begun](const auto&) { begun = true; });
    }
    EXPECT_FALSE(begun);
}

}  // namespace
}  // namespace vtx
