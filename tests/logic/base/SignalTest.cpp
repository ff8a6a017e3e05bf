// SPDX-License-Identifier: MIT
#include "base/Signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

namespace vtx {
namespace {

TEST(Signal, subscribers_are_told_in_the_order_in_which_they_subscribed) {
    Signal<int> signal;
    std::vector<int> told;
    const auto first = signal.subscribe([&](int value) { told.push_back(value * 10 + 1); });
    const auto second = signal.subscribe([&](int value) { told.push_back(value * 10 + 2); });
    signal.emit(4);
    signal.emit(5);
    EXPECT_EQ(told, (std::vector{41, 42, 51, 52}));
}

TEST(Signal, a_dropped_token_ends_the_telling) {
    Signal<> signal;
    int told = 0;
    {
        const auto token = signal.subscribe([&] { ++told; });
        EXPECT_TRUE(signal.hasSubscribers());
        signal.emit();
    }
    signal.emit();
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(signal.hasSubscribers());
}

TEST(Signal, assigning_over_a_token_ends_the_old_subscription) {
    Signal<> signal;
    int first = 0;
    int second = 0;
    auto token = signal.subscribe([&] { ++first; });
    token = signal.subscribe([&] { ++second; });
    signal.emit();
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

TEST(Signal, a_handler_keeps_its_own_state_from_one_emission_to_the_next) {
    Signal<> signal;
    std::vector<int> counts;
    const auto token = signal.subscribe([&, count = 0]() mutable { counts.push_back(++count); });
    signal.emit();
    signal.emit();
    signal.emit();
    EXPECT_EQ(counts, (std::vector{1, 2, 3}));
}

TEST(Signal, a_subscriber_may_unsubscribe_itself_while_it_is_told) {
    Signal<> signal;
    int first = 0;
    int second = 0;
    Subscription token;
    // What the handler captured must last until it returns.
    token = signal.subscribe([&token, &first, kept = std::make_shared<int>(7)] {
        token.cancel();
        first += *kept;
    });
    const auto other = signal.subscribe([&] { ++second; });
    signal.emit();
    signal.emit();
    EXPECT_EQ(first, 7);
    EXPECT_EQ(second, 2);
}

TEST(Signal, a_subscriber_that_another_one_unsubscribes_is_not_told_any_more) {
    Signal<> signal;
    Subscription second;
    int told = 0;
    const auto first = signal.subscribe([&] { second.cancel(); });
    second = signal.subscribe([&] { ++told; });
    signal.emit();
    EXPECT_EQ(told, 0);
}

TEST(Signal, one_that_joins_during_an_emission_is_told_from_the_next_one_on) {
    Signal<> signal;
    Subscriptions joined;
    int told = 0;
    const auto first = signal.subscribe([&] {
        if (joined.empty()) joined.push_back(signal.subscribe([&] { ++told; }));
    });
    signal.emit();
    EXPECT_EQ(told, 0);
    signal.emit();
    EXPECT_EQ(told, 1);
}

TEST(Signal, many_may_join_during_an_emission_without_disturbing_it) {
    Signal<> signal;
    Subscriptions joined;
    int last = 0;
    const auto first = signal.subscribe([&] {
        for (int i = 0; i < 100; ++i) joined.push_back(signal.subscribe([] {}));
    });
    const auto second = signal.subscribe([&] { ++last; });
    signal.emit();
    EXPECT_EQ(last, 1);
}

TEST(Signal, destroying_it_in_an_emission_ends_the_emission) {
    auto signal = std::make_unique<Signal<>>();
    int told = 0;
    const auto first = signal->subscribe([&] { signal.reset(); });
    const auto second = signal->subscribe([&] { ++told; });
    EXPECT_FALSE(signal->emit());
    EXPECT_EQ(told, 0);
}

TEST(Signal, an_emission_that_it_survives_says_so) {
    Signal<> signal;
    const auto token = signal.subscribe([] {});
    EXPECT_TRUE(signal.emit());
}

TEST(Signal, a_token_may_outlive_the_signal) {
    Subscription token;
    {
        Signal<> signal;
        token = signal.subscribe([] {});
    }
    EXPECT_TRUE(token);
    token.cancel();
    EXPECT_FALSE(token);
}

TEST(Signal, emissions_nest) {
    Signal<int> signal;
    std::vector<int> told;
    const auto first = signal.subscribe([&](int value) {
        told.push_back(value);
        if (value == 1) signal.emit(2);
    });
    const auto second = signal.subscribe([&](int value) { told.push_back(value * 10); });
    signal.emit(1);
    EXPECT_EQ(told, (std::vector{1, 2, 20, 10}));
}

TEST(Signal, what_a_dropped_handler_owned_may_itself_end_subscriptions_of_the_signal) {
    Signal<> signal;
    int told = 0;
    auto inner = std::make_shared<Subscription>(signal.subscribe([&] { ++told; }));
    Subscription outer = signal.subscribe([kept = std::move(inner)] { (void)kept; });
    const auto dropper = signal.subscribe([&] { outer.cancel(); });
    signal.emit();
    signal.emit();
    EXPECT_EQ(told, 1);
}

TEST(Signal, subscribing_with_a_value_tells_it_at_once_and_later_ones_after_it) {
    Signal<int> signal;
    std::vector<int> told;
    const auto token = signal.subscribeTelling([&](int value) { told.push_back(value); }, 3);
    EXPECT_EQ(told, std::vector{3});
    signal.emit(4);
    EXPECT_EQ(told, (std::vector{3, 4}));
}

TEST(Signal, a_token_that_is_moved_to_itself_goes_on) {
    Signal<> signal;
    int told = 0;
    auto token = signal.subscribe([&] { ++told; });
    auto& same = token;
    token = std::move(same);
    signal.emit();
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace vtx
