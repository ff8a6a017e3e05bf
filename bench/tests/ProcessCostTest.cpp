// SPDX-License-Identifier: MIT
#include "ProcessCost.h"

#include <gtest/gtest.h>

namespace vtx::bench {
namespace {

using namespace std::chrono_literals;

TEST(ProcessCost, a_span_is_the_difference_of_two_readings) {
    const CostReading begin{100ms, {{1, {"main", 80ms, 10, 2}}, {2, {"tick", 20ms, 5, 0}}}};
    const CostReading end{160ms, {{1, {"main", 120ms, 17, 3}}, {2, {"tick", 40ms, 8, 0}}}};
    const CostSpan span = between(begin, end);
    EXPECT_EQ(span.cpu, 60ms);
    EXPECT_EQ(span.wakeUps, 10U);
    EXPECT_EQ(span.preemptions, 1U);
    EXPECT_EQ(span.endedThreads, 0U);
    EXPECT_EQ(span.threads.at(2).wakeUps, 3U);
}

TEST(ProcessCost, a_thread_that_came_counts_whole_and_one_that_ended_is_told) {
    const CostReading begin{100ms, {{1, {"main", 80ms, 10, 2}}, {2, {"tick", 20ms, 5, 0}}}};
    const CostReading end{150ms, {{1, {"main", 90ms, 11, 2}}, {3, {"table", 5ms, 4, 0}}}};
    const CostSpan span = between(begin, end);
    EXPECT_EQ(span.wakeUps, 5U);
    EXPECT_EQ(span.endedThreads, 1U);
    EXPECT_EQ(span.cpu, 50ms);
}

}  // namespace
}  // namespace vtx::bench
