// SPDX-License-Identifier: MIT
#include "platform/linux/SlowRead.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <thread>
#include <vector>

#include "base/QueueExecutor.h"
#include "platform/linux/SlowReadThread.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;

/// A source that counts how often it is read, on a worker that the test steps.
struct SlowReadOfACount : testing::Test {
    QueueExecutor worker;
    ManualClock clock;
    std::shared_ptr<int> reads = std::make_shared<int>(0);
    std::shared_ptr<bool> fails = std::make_shared<bool>(false);
    SlowRead<int> source{worker, clock,
                         [reads = reads, fails = fails]() -> std::optional<int> {
                             ++*reads;
                             if (*fails) return std::nullopt;
                             return *reads;
                         },
                         Duration(0)};
};

TEST_F(SlowReadOfACount, reads_nothing_until_somebody_asks) {
    EXPECT_TRUE(worker.isEmpty());
    EXPECT_EQ(source.latest(), std::nullopt);
    EXPECT_EQ(*reads, 0);
    worker.drain();
    EXPECT_EQ(*reads, 1);
    EXPECT_TRUE(worker.isEmpty());
}

TEST_F(SlowReadOfACount, gives_what_was_read_last_and_asks_for_the_next) {
    (void)source.latest();
    worker.drain();
    EXPECT_EQ(source.latest(), 1);
    EXPECT_EQ(*reads, 1);
    worker.drain();
    EXPECT_EQ(source.latest(), 2);
}

TEST_F(SlowReadOfACount, asks_once_while_the_source_has_not_answered) {
    for (int i = 0; i < 5; ++i) (void)source.latest();
    EXPECT_EQ(worker.drain(), 1u);
    EXPECT_EQ(*reads, 1);
}

TEST_F(SlowReadOfACount, a_value_older_than_twelve_seconds_is_a_failed_read) {
    (void)source.latest();
    worker.drain();
    clock.advanceBy(seconds(12));
    EXPECT_EQ(source.latest(), 1);
    clock.advanceBy(milliseconds(1));
    EXPECT_EQ(source.latest(), std::nullopt);
    worker.drain();
    EXPECT_EQ(source.latest(), 2);
}

TEST_F(SlowReadOfACount, a_value_from_before_the_machine_slept_is_old) {
    (void)source.latest();
    worker.drain();
    clock.sleepMachine(hours(1));
    EXPECT_EQ(source.latest(), std::nullopt);
}

TEST_F(SlowReadOfACount, a_failure_replaces_the_value_before) {
    (void)source.latest();
    worker.drain();
    *fails = true;
    EXPECT_EQ(source.latest(), 1);
    worker.drain();
    EXPECT_EQ(source.latest(), std::nullopt);
    *fails = false;
    worker.drain();
    EXPECT_EQ(source.latest(), 3);
}

TEST_F(SlowReadOfACount, that_does_not_answer_in_time_is_absent_and_told_when_it_came) {
    EXPECT_EQ(source.read(), std::nullopt);
    worker.drain();
    EXPECT_EQ(source.latest(), 1);
}

TEST_F(SlowReadOfACount, waited_for_is_a_fresh_one_and_never_the_last) {
    (void)source.latest();
    worker.drain();
    EXPECT_EQ(source.read(), std::nullopt);
}

TEST(SlowRead, waits_for_the_answer_of_its_thread) {
    const ManualClock clock;
    SlowReadThread thread;
    SlowRead<std::thread::id> source(
        thread, clock, [] { return std::optional(std::this_thread::get_id()); }, hours(1));
    const auto first = source.read();
    ASSERT_TRUE(first);
    EXPECT_NE(*first, std::this_thread::get_id());
    EXPECT_EQ(source.read(), first);
}

TEST(SlowRead, that_went_before_its_turn_reads_nothing) {
    QueueExecutor worker;
    const ManualClock clock;
    bool hasRead = false;
    {
        SlowRead<int> source(worker, clock, [&] {
            hasRead = true;
            return std::optional(1);
        });
        (void)source.latest();
    }
    worker.drain();
    EXPECT_FALSE(hasRead);
}

TEST(SlowRead, that_hangs_outlives_its_owner_its_thread_and_the_clock) {
    struct Hanging {
        std::promise<void> begun, released, gone;
        ~Hanging() { gone.set_value(); }
    };
    auto hanging = std::make_shared<Hanging>();
    auto begun = hanging->begun.get_future();
    auto gone = hanging->gone.get_future();
    std::promise<void>* const release = &hanging->released;
    {
        const auto clock = std::make_unique<ManualClock>();
        SlowReadThread thread({}, {.patience = Duration(0)});
        SlowRead<int> source(thread, *clock, [hanging = std::move(hanging)] {
            hanging->begun.set_value();
            hanging->released.get_future().wait();
            return std::optional(1);
        });
        EXPECT_EQ(source.latest(), std::nullopt);
        begun.wait();
    }
    // All went while the read was hanging. Now it ends, and lets go of what it owned.
    EXPECT_NE(gone.wait_for(Duration(0)), std::future_status::ready);
    release->set_value();
    gone.wait();
}

TEST(SlowReadThread, starts_with_its_first_job_and_ends_with_its_owner) {
    bool hasStarted = false;
    {
        const SlowReadThread thread([&] { hasStarted = true; }, {.patience = hours(1)});
    }
    EXPECT_FALSE(hasStarted);
    bool isCurrent = false;
    {
        SlowReadThread thread([&] { hasStarted = true; }, {.patience = hours(1)});
        std::promise<void> done;
        thread.post([&] {
            isCurrent = hasStarted && thread.isCurrent();
            done.set_value();
        });
        done.get_future().wait();
        EXPECT_FALSE(thread.isCurrent());
    }
    EXPECT_TRUE(isCurrent);
}

TEST(SlowReadThread, its_end_drops_what_is_queued_behind_a_job_that_hangs) {
    auto release = std::make_shared<std::promise<void>>();
    std::promise<void> begun;
    auto owned = std::make_shared<int>(1);
    const std::weak_ptr<int> queued = owned;
    {
        SlowReadThread thread({}, {.patience = Duration(0)});
        thread.post([release, &begun] {
            const auto kept = release;
            begun.set_value();
            kept->get_future().wait();
        });
        begun.get_future().wait();
        thread.post([owned = std::move(owned)] { FAIL() << "it ran"; });
    }
    EXPECT_TRUE(queued.expired());
    release->set_value();
}

/// A thread that gathers for ever, at rest.
struct GatheringThread : testing::Test {
    GatheringThread() {
        thread.post([] {});
        while (!thread.isAtRest()) std::this_thread::yield();
    }
    /// A job that notes its number.
    [[nodiscard]] Job noting(int number) {
        return [this, number] { ran.push_back(number); };
    }
    void waitForAll() {
        std::promise<void> done;
        thread.post([&] { done.set_value(); });
        done.get_future().wait();
    }

    std::vector<int> ran;  ///< of the thread's jobs alone, once they were waited for
    SlowReadThread thread{{}, {.patience = hours(1), .gathering = hours(1)}};
};

TEST_F(GatheringThread, is_not_woken_for_what_nobody_waits_for) {
    thread.postSoon(noting(1));
    thread.postSoon(noting(2));
    EXPECT_TRUE(thread.isAtRest());
    EXPECT_TRUE(ran.empty());
}

TEST_F(GatheringThread, runs_what_it_gathered_in_order_once_somebody_waits) {
    thread.postSoon(noting(1));
    thread.postSoon(noting(2));
    thread.post(noting(3));
    waitForAll();
    EXPECT_EQ(ran, (std::vector{1, 2, 3}));
}

TEST_F(GatheringThread, reads_at_once_what_was_gathered_when_somebody_waits_for_it) {
    const ManualClock clock;
    SlowRead<int> source(thread, clock, [] { return std::optional(7); }, hours(1));
    EXPECT_EQ(source.latest(), std::nullopt);
    EXPECT_TRUE(thread.isAtRest());
    EXPECT_EQ(source.read(), 7);
}

TEST_F(GatheringThread, drops_what_it_gathered_when_it_ends) {
    auto owned = std::make_shared<int>(1);
    const std::weak_ptr<int> queued = owned;
    {
        SlowReadThread other({}, {.patience = hours(1), .gathering = hours(1)});
        other.post([] {});
        while (!other.isAtRest()) std::this_thread::yield();
        other.postSoon([owned = std::move(owned)] { FAIL() << "it ran"; });
    }
    EXPECT_TRUE(queued.expired());
}

TEST(SlowReadThread, runs_by_itself_what_it_gathered_a_while) {
    SlowReadThread thread({}, {.patience = hours(1), .gathering = milliseconds(1)});
    thread.post([] {});
    while (!thread.isAtRest()) std::this_thread::yield();
    std::promise<void> done;
    thread.postSoon([&] { done.set_value(); });
    done.get_future().wait();
}

}  // namespace
}  // namespace vtx::test
