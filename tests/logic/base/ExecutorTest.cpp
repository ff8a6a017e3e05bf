// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "base/PostBurst.h"
#include "base/QueueExecutor.h"
#include "base/SerialExecutor.h"

namespace vtx {
namespace {

/// Does something when it goes.
struct AtEnd {
    explicit AtEnd(Job job) : work(std::move(job)) {}
    AtEnd(AtEnd&&) = default;
    ~AtEnd() {
        if (work) work();
    }
    Job work;
};

TEST(QueueExecutor, jobs_run_in_the_order_in_which_they_were_posted_when_it_is_stepped) {
    QueueExecutor executor;
    std::vector<int> ran;
    for (int i = 0; i < 3; ++i) executor.post([&ran, i] { ran.push_back(i); });
    EXPECT_TRUE(ran.empty());
    EXPECT_TRUE(executor.runOne());
    EXPECT_EQ(ran, std::vector{0});
    EXPECT_EQ(executor.drain(), 2u);
    EXPECT_EQ(ran, (std::vector{0, 1, 2}));
    EXPECT_FALSE(executor.runOne());
}

TEST(QueueExecutor, a_job_posted_by_a_job_runs_after_it_and_never_inside) {
    QueueExecutor executor;
    std::vector<int> ran;
    executor.post([&] {
        executor.post([&] { ran.push_back(2); });
        ran.push_back(1);
    });
    EXPECT_EQ(executor.drain(), 2u);
    EXPECT_EQ(ran, (std::vector{1, 2}));
}

TEST(QueueExecutor, what_a_job_owns_has_gone_before_the_next_one_runs) {
    QueueExecutor executor;
    auto owned = std::make_shared<int>(1);
    const std::weak_ptr<int> weak = owned;
    bool goneBefore = false;
    executor.post([kept = std::move(owned)] { (void)kept; });
    executor.post([&] { goneBefore = weak.expired(); });
    executor.drain();
    EXPECT_TRUE(goneBefore);
}

TEST(QueueExecutor, it_wakes_its_owner_only_for_the_first_job_of_an_empty_queue) {
    struct Waking : QueueExecutor {
        int woken = 0;
        void wake() override { ++woken; }
    } executor;
    executor.post([] {});
    executor.post([] {});
    EXPECT_EQ(executor.woken, 1);
    executor.drain();
    executor.post([] {});
    EXPECT_EQ(executor.woken, 2);
}

TEST(QueueExecutor, it_is_current_on_its_own_thread_alone) {
    QueueExecutor executor;
    EXPECT_TRUE(executor.isCurrent());
    bool elsewhere = true;
    std::thread([&] { elsewhere = executor.isCurrent(); }).join();
    EXPECT_FALSE(elsewhere);
}

TEST(QueueExecutor, its_end_drops_queued_jobs_and_what_they_post_as_they_go) {
    int ran = 0;
    bool lastWentToo = false;
    {
        QueueExecutor executor;
        executor.post([&, at = AtEnd([&] {
                              executor.post(
                                  [&, last = AtEnd([&] { lastWentToo = true; })] { ++ran; });
                          })] { ++ran; });
    }
    EXPECT_EQ(ran, 0);
    EXPECT_TRUE(lastWentToo);
}

TEST(QueueExecutor, jobs_posted_from_other_threads_all_arrive) {
    QueueExecutor executor;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < 250; ++n) executor.post([] {});
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(executor.drain(), 1000u);
}

TEST(SerialExecutor, jobs_run_in_order_on_one_other_thread) {
    SerialExecutor executor;
    std::vector<int> ran;
    std::vector<std::thread::id> threads;
    std::promise<void> done;
    for (int i = 0; i < 100; ++i) {
        executor.post([&, i] {
            ran.push_back(i);
            threads.push_back(std::this_thread::get_id());
        });
    }
    executor.post([&] { done.set_value(); });
    done.get_future().wait();
    EXPECT_TRUE(std::ranges::is_sorted(ran));
    EXPECT_EQ(ran.size(), 100u);
    EXPECT_EQ(std::ranges::count(threads, threads.front()), 100);
    EXPECT_NE(threads.front(), std::this_thread::get_id());
}

TEST(PostBurst, wakes_each_executor_once_however_many_jobs_it_got) {
    SerialExecutor first, second;
    std::promise<void> done[2];
    {
        const PostBurst burst;
        for (int i = 0; i < 3; ++i) first.post([] {});
        EXPECT_EQ(burst.size(), 1u);
        first.post([&] { done[0].set_value(); });
        second.post([&] { done[1].set_value(); });
        EXPECT_EQ(burst.size(), 2u);
    }
    for (auto& each : done) each.get_future().wait();
}

TEST(PostBurst, within_another_leaves_the_waking_to_that_one) {
    SerialExecutor executor;
    std::promise<void> done;
    {
        const PostBurst outer;
        {
            const PostBurst inner;
            executor.post([&] { done.set_value(); });
            EXPECT_EQ(outer.size(), 0u);
        }
        EXPECT_EQ(outer.size(), 1u);
    }
    done.get_future().wait();
}

TEST(PostBurst, is_of_its_own_thread_alone) {
    SerialExecutor executor;
    const PostBurst burst;
    std::promise<void> done;
    std::thread([&] { executor.post([&] { done.set_value(); }); }).join();
    EXPECT_EQ(burst.size(), 0u);
    done.get_future().wait();
}

/// What jobs of a thread tell, on a queue that the test steps.
struct SerialExecutorTells : testing::Test {
    QueueExecutor home;
    std::vector<int> told;
    std::promise<void> queued;

    Job telling(SerialExecutor& from, int number) {
        return
            [this, &from, number] { from.tell(home, [this, number] { told.push_back(number); }); };
    }
};

TEST_F(SerialExecutorTells, of_several_jobs_in_a_row_with_one_job_in_their_order) {
    struct Waking final : QueueExecutor {
        std::promise<void> woken;
        void wake() override { woken.set_value(); }
    } waking;
    SerialExecutor executor;
    executor.post([this] { queued.get_future().wait(); });
    for (int i = 1; i <= 3; ++i) {
        executor.post([&, i] { executor.tell(waking, [&, i] { told.push_back(i); }); });
    }
    queued.set_value();
    waking.woken.get_future().wait();
    EXPECT_EQ(waking.drain(), 1u);
    EXPECT_EQ(told, (std::vector{1, 2, 3}));
}

TEST_F(SerialExecutorTells, nothing_before_the_row_of_jobs_ends) {
    bool isEmptyInTheRow = false;
    SerialExecutor executor;
    std::promise<void> done;
    executor.post([this] { queued.get_future().wait(); });
    executor.post(telling(executor, 1));
    executor.post([&] {
        isEmptyInTheRow = home.isEmpty();
        done.set_value();
    });
    queued.set_value();
    done.get_future().wait();
    EXPECT_TRUE(isEmptyInTheRow);
}

TEST_F(SerialExecutorTells, at_last_where_jobs_keep_coming) {
    bool isToldInTheRow = false;
    SerialExecutor executor;
    std::promise<void> done;
    executor.post([this] { queued.get_future().wait(); });
    executor.post(telling(executor, 1));
    for (int i = 0; i < 16; ++i) executor.post([] {});
    executor.post([&] {
        isToldInTheRow = !home.isEmpty();
        done.set_value();
    });
    queued.set_value();
    done.get_future().wait();
    EXPECT_TRUE(isToldInTheRow);
}

TEST_F(SerialExecutorTells, each_of_two_receivers_in_turn) {
    struct Waking final : QueueExecutor {
        std::promise<void> woken;
        void wake() override { woken.set_value(); }
    } other;
    SerialExecutor executor;
    executor.post([this] { queued.get_future().wait(); });
    executor.post(telling(executor, 1));
    executor.post([&] { executor.tell(other, [this] { told.push_back(2); }); });
    queued.set_value();
    other.woken.get_future().wait();
    EXPECT_EQ(home.drain(), 1u);
    EXPECT_EQ(other.drain(), 1u);
    EXPECT_EQ(told, (std::vector{1, 2}));
}

TEST(SerialExecutor, it_is_current_inside_its_jobs_alone) {
    SerialExecutor executor;
    EXPECT_FALSE(executor.isCurrent());
    std::promise<bool> inside;
    executor.post([&] { inside.set_value(executor.isCurrent()); });
    EXPECT_TRUE(inside.get_future().get());
    EXPECT_FALSE(executor.isCurrent());
}

TEST(SerialExecutor, the_start_work_runs_once_and_before_the_first_job) {
    std::vector<int> order;
    std::promise<void> done;
    {
        SerialExecutor executor([&] { order.push_back(0); });
        executor.post([&] { order.push_back(1); });
        executor.post([&] {
            order.push_back(2);
            done.set_value();
        });
        done.get_future().wait();
    }
    EXPECT_EQ(order, (std::vector{0, 1, 2}));
}

TEST(SerialExecutor, without_a_job_no_thread_is_started) {
    bool started = false;
    {
        const SerialExecutor executor([&] { started = true; });
    }
    EXPECT_FALSE(started);
}

TEST(SerialExecutor, its_end_waits_for_the_running_job_and_lets_every_queued_one_go) {
    std::promise<void> running;
    bool finished = false;
    int ended = 0;  // read once the thread has ended
    {
        SerialExecutor executor;
        executor.post([&] {
            running.set_value();
            // Those posted here may be run or dropped, as the end comes sooner or later.
            for (int i = 0; i < 1000; ++i) executor.post([at = AtEnd([&] { ++ended; })] {});
            finished = true;
        });
        running.get_future().wait();
    }
    EXPECT_TRUE(finished);
    EXPECT_EQ(ended, 1000);
}

TEST(SerialExecutor, a_dropped_job_may_post_as_it_goes) {
    bool ended = false;
    {
        SerialExecutor executor;
        executor.post([&, at = AtEnd([&] {
                              executor.post([&, last = AtEnd([&] { ended = true; })] {});
                          })] {});
    }
    EXPECT_TRUE(ended);
}

}  // namespace
}  // namespace vtx
