// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <memory>
#include <string>
#include <thread>

#include "ui/shell/QtMainExecutor.h"

namespace vtx {
namespace {

/// Counts the events that an executor is sent.
struct EventCount : QObject {
    explicit EventCount(QObject& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent*) override {
        ++count;
        return false;
    }
    int count = 0;
};

TEST(QtMainExecutor, a_job_runs_later_and_in_order) {
    QtMainExecutor executor;
    std::string ran;
    executor.post([&] { ran += 'a'; });
    executor.post([&] { ran += 'b'; });
    EXPECT_EQ(ran, "");
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(ran, "ab");
}

TEST(QtMainExecutor, a_burst_of_jobs_and_those_they_post_take_one_event) {
    QtMainExecutor executor;
    EventCount events(executor);
    std::string ran;
    executor.post([&] {
        ran += 'a';
        executor.post([&] { ran += 'c'; });
    });
    executor.post([&] { ran += 'b'; });
    QCoreApplication::sendPostedEvents(&executor);
    EXPECT_EQ(ran, "abc");
    EXPECT_EQ(events.count, 1);
}

TEST(QtMainExecutor, a_job_posted_after_a_drain_is_run_by_the_next) {
    QtMainExecutor executor;
    int ran = 0;
    executor.post([&] { ++ran; });
    QCoreApplication::sendPostedEvents();
    executor.post([&] { ++ran; });
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(ran, 2);
}

TEST(QtMainExecutor, jobs_of_other_threads_run_on_its_own) {
    QtMainExecutor executor;
    bool there = true, here = false;
    std::thread worker([&] {
        there = executor.isCurrent();
        executor.post([&] { here = executor.isCurrent(); });
    });
    worker.join();
    QCoreApplication::sendPostedEvents();
    EXPECT_FALSE(there);
    EXPECT_TRUE(here);
}

TEST(QtMainExecutor, jobs_that_wait_when_it_goes_are_dropped_unrun) {
    bool ran = false;
    const auto owned = std::make_shared<int>();
    {
        QtMainExecutor executor;
        executor.post([&ran, owned] { ran = true; });
    }
    QCoreApplication::sendPostedEvents();
    EXPECT_FALSE(ran);
    EXPECT_EQ(owned.use_count(), 1);
}

}  // namespace
}  // namespace vtx
