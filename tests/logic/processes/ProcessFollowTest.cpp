// SPDX-License-Identifier: MIT
// How the list is kept fresh for whoever looks at it.
#include <gtest/gtest.h>

#include "base/TaskScope.h"
#include "platform/simulated/Operations.h"
#include "processes/ProcessManager.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

struct Followed : testing::Test {
    TestBench bench;
    ProcessManager manager{bench.ports(), bench.executors()};

    [[nodiscard]] std::size_t samples() const {
        return bench.platform.calls(operations::kernProcAllSize);
    }
};

TEST_F(Followed, a_list_that_is_looked_at_is_sampled_at_once_and_every_two_seconds) {
    const auto token = manager.keepFresh();
    bench.settle();
    EXPECT_EQ(samples(), 1U);
    bench.advance(seconds(1.9));
    EXPECT_EQ(samples(), 1U);
    bench.advance(seconds(8.1 + 5 * 0.2));
    EXPECT_GE(samples(), 5U);
    EXPECT_LE(samples(), 6U);
}

TEST_F(Followed, it_ends_with_the_token) {
    auto token = manager.keepFresh();
    bench.advance(seconds(1));
    token.cancel();
    bench.advance(seconds(60));
    EXPECT_EQ(samples(), 1U);
}

TEST_F(Followed, a_token_that_goes_during_a_sample_leaves_no_timer) {
    auto token = manager.keepFresh();
    bench.main.drain();
    ASSERT_TRUE(*manager.isLoading);
    token.cancel();
    bench.settle();
    EXPECT_FALSE(*manager.isLoading);
    EXPECT_EQ(samples(), 1U);
    EXPECT_TRUE(bench.clock.pending().empty());
}

TEST_F(Followed, nothing_is_let_go_while_a_sample_is_under_way) {
    TaskScope tasks(bench.main);
    manager.startRefresh();
    bench.main.drain();
    ASSERT_TRUE(*manager.isLoading);
    tasks.spawn([this](std::stop_token) { return manager.rest(); });
    bench.settle();
    EXPECT_EQ(bench.platform.calls(operations::processesLetGo), 0U);
    tasks.spawn([this](std::stop_token) { return manager.rest(); });
    bench.settle();
    EXPECT_EQ(bench.platform.calls(operations::processesLetGo), 1U);
}

TEST_F(Followed, a_token_that_goes_at_once_causes_one_sample_at_most) {
    manager.keepFresh().cancel();
    bench.advance(seconds(60));
    EXPECT_LE(samples(), 1U);
}

TEST_F(Followed, a_token_may_outlive_the_manager) {
    std::optional<ProcessManager> other(std::in_place, bench.ports(), bench.executors());
    auto token = other->keepFresh();
    bench.advance(seconds(1));
    other.reset();
    token.cancel();
    bench.advance(seconds(10));
    EXPECT_EQ(samples(), 1U);
}

TEST_F(Followed, a_refresh_may_be_begun_without_waiting_for_it) {
    manager.startRefresh();
    bench.settle();
    EXPECT_EQ(samples(), 1U);
    EXPECT_FALSE(manager.processes->empty());
}

TEST_F(Followed, the_age_of_the_list_is_known_from_the_first_on) {
    EXPECT_EQ(manager.secondsSinceRefresh(), std::nullopt);
    manager.startRefresh();
    bench.settle();
    bench.clock.advanceBy(seconds(2.5));
    EXPECT_EQ(manager.secondsSinceRefresh(), 2.5);
}

TEST_F(Followed, a_search_is_made_in_the_latest_sample) {
    EXPECT_TRUE(manager.matching("zsh").empty());
    manager.startRefresh();
    bench.settle();
    ASSERT_EQ(manager.matching(" ZSH ").size(), 1U);
    EXPECT_EQ(manager.matching("3991").at(0).name, "zsh");
    EXPECT_EQ(manager.matching("").size(), manager.processes->size());
}

}  // namespace
}  // namespace vtx
