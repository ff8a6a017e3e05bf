// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "base/Stream.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

/// A throttled signal: 50 ms, as the values come out and when.
struct Throttled {
    TestBench bench;
    Signal<int> signal;
    std::vector<int> values;
    std::vector<Duration> times;
    Instant start = bench.clock.continuous();
    std::optional<Subscription> token;

    Throttled() {
        token.emplace(stream()([this](int value) { arrived(value); }));
    }

    Stream<int> stream() {
        const Stream<int> source = [this](std::function<void(const int&)> next) {
            return signal.subscribe(std::move(next));
        };
        return throttleLatest(source, 50ms, bench.clock, bench.main);
    }

    void arrived(int value) {
        values.push_back(value);
        times.push_back(bench.clock.continuous() - start);
    }
};

TEST(ThrottleLatest, the_leading_value_is_posted_and_does_not_wait_for_the_clock) {
    Throttled t;
    t.signal.emit(1);
    EXPECT_TRUE(t.values.empty());
    t.bench.settle();
    EXPECT_EQ(t.values, std::vector{1});
    EXPECT_EQ(t.times, std::vector<Duration>{0ms});
}

TEST(ThrottleLatest, no_timer_runs_while_nothing_waits) {
    Throttled t;
    t.signal.emit(1);
    t.bench.settle();
    EXPECT_TRUE(t.bench.clock.pending().empty());
    t.signal.emit(2);
    EXPECT_EQ(t.bench.clock.pending().size(), 1u);
    t.bench.advance(50ms);
    EXPECT_EQ(t.values, (std::vector{1, 2}));
    EXPECT_TRUE(t.bench.clock.pending().empty());
}

TEST(ThrottleLatest, values_within_the_interval_give_one_trailing_value_the_latest) {
    Throttled t;
    t.signal.emit(1);
    t.bench.advance(10ms);
    t.signal.emit(2);
    t.bench.advance(10ms);
    t.signal.emit(3);
    t.bench.advance(29ms);
    EXPECT_EQ(t.values, std::vector{1});
    t.bench.advance(1ms);
    EXPECT_EQ(t.values, (std::vector{1, 3}));
    EXPECT_EQ(t.times.back(), Duration(50ms));
    t.bench.advance(1s);
    EXPECT_EQ(t.values.size(), 2u);
}

TEST(ThrottleLatest, values_that_come_before_the_leading_one_was_delivered_replace_it) {
    Throttled t;
    t.signal.emit(1);
    t.signal.emit(2);
    t.bench.settle();
    EXPECT_EQ(t.values, std::vector{2});
    EXPECT_TRUE(t.bench.clock.pending().empty());
}

TEST(ThrottleLatest, a_value_exactly_at_the_end_of_the_interval_is_a_leading_one) {
    Throttled t;
    t.signal.emit(1);
    t.bench.advance(50ms);
    t.signal.emit(2);
    EXPECT_TRUE(t.bench.clock.pending().empty());
    t.bench.settle();
    EXPECT_EQ(t.values, (std::vector{1, 2}));
}

TEST(ThrottleLatest, a_value_just_before_the_end_of_the_interval_waits_for_it) {
    Throttled t;
    t.signal.emit(1);
    t.bench.advance(50ms - 1ns);
    t.signal.emit(2);
    t.bench.settle();
    EXPECT_EQ(t.values, std::vector{1});
    t.bench.advance(1ns);
    EXPECT_EQ(t.values, (std::vector{1, 2}));
}

TEST(ThrottleLatest, the_interval_starts_anew_with_a_trailing_value) {
    Throttled t;
    t.signal.emit(1);
    t.bench.settle();
    t.signal.emit(2);
    t.bench.advance(60ms);
    t.signal.emit(3);
    t.bench.settle();
    EXPECT_EQ(t.values, (std::vector{1, 2}));
    t.bench.advance(40ms);
    EXPECT_EQ(t.times, (std::vector<Duration>{0ms, 50ms, 100ms}));
}

TEST(ThrottleLatest, the_interval_counts_from_the_delivery_when_that_was_late) {
    Throttled t;
    t.signal.emit(1);
    t.bench.clock.advanceBy(60ms);  // the executor was busy
    t.bench.main.drain();
    t.signal.emit(2);
    t.bench.settle();
    EXPECT_EQ(t.values, std::vector{1});
    t.bench.advance(50ms);
    EXPECT_EQ(t.times, (std::vector<Duration>{60ms, 110ms}));
}

TEST(ThrottleLatest, a_steady_stream_gives_one_value_an_interval) {
    Throttled t;
    for (int i = 0; i < 100; ++i) {
        t.signal.emit(i);
        t.bench.advance(10ms);
    }
    EXPECT_EQ(t.values.size(), 21u);  // at 0, 50, ... 1000 ms
    for (std::size_t i = 1; i < t.times.size(); ++i)
        EXPECT_EQ(t.times[i] - t.times[i - 1], Duration(50ms));
    EXPECT_EQ(t.values.back(), 99);
}

TEST(ThrottleLatest, a_value_that_the_handler_itself_causes_waits_for_the_next_interval) {
    Throttled t;
    t.token.emplace(t.stream()([&](int value) {
        t.arrived(value);
        if (value < 3) t.signal.emit(value + 1);
    }));
    t.signal.emit(1);
    t.bench.advance(200ms);
    EXPECT_EQ(t.values, (std::vector{1, 2, 3}));
    EXPECT_EQ(t.times, (std::vector<Duration>{0ms, 50ms, 100ms}));
}

TEST(ThrottleLatest, the_timer_may_be_a_tenth_of_the_interval_late) {
    Throttled t;
    t.signal.emit(1);
    t.bench.settle();
    t.signal.emit(2);
    const ManualClock::PendingTimer expected{t.start + 50ms, 5ms};
    EXPECT_EQ(t.bench.clock.pending(), std::vector{expected});
}

TEST(ThrottleLatest, dropping_the_token_drops_what_waits_and_its_timer) {
    Throttled t;
    t.signal.emit(1);
    t.bench.settle();
    t.signal.emit(2);
    t.token.reset();
    EXPECT_TRUE(t.bench.clock.pending().empty());
    t.bench.advance(1s);
    EXPECT_EQ(t.values, std::vector{1});
}

TEST(ThrottleLatest, dropping_the_token_drops_a_leading_value_that_was_posted) {
    Throttled t;
    t.signal.emit(1);
    t.token.reset();
    t.bench.settle();
    EXPECT_TRUE(t.values.empty());
}

TEST(ThrottleLatest, the_handler_may_drop_the_token) {
    Throttled t;
    t.token.emplace(t.stream()([&](int value) {
        t.arrived(value);
        t.token.reset();
    }));
    t.signal.emit(1);
    t.bench.advance(100ms);
    t.signal.emit(2);
    t.bench.advance(100ms);
    EXPECT_EQ(t.values, std::vector{1});
}

TEST(ThrottleLatest, a_source_that_goes_on_after_its_end_is_not_heard) {
    TestBench bench;
    std::function<void(const int&)> tell;
    const Stream<int> unending = [&tell](std::function<void(const int&)> next) {
        tell = std::move(next);
        return Subscription([] {});
    };
    std::vector<int> values;
    auto token = throttleLatest(unending, 50ms, bench.clock,
                                bench.main)([&values](int value) { values.push_back(value); });
    tell(1);
    bench.settle();
    token.cancel();
    tell(2);
    bench.advance(1s);
    EXPECT_EQ(values, std::vector{1});
    EXPECT_TRUE(bench.clock.pending().empty());
}

}  // namespace
}  // namespace vtx
