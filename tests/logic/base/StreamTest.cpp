// SPDX-License-Identifier: MIT
#include "base/Stream.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Published.h"
#include "base/QueueExecutor.h"

namespace vtx {
namespace {

struct Model : ObservableObject {
    Published<int> value{*this, 0};
};

/// What came out of a stream.
template <class T>
struct Collected {
    explicit Collected(const Stream<T>& stream)
        : token(stream([this](const T& value) { values.push_back(value); })) {}
    std::vector<T> values;
    Subscription token;
};

TEST(Stream, map_passes_on_what_the_function_makes_of_each_value) {
    Model model;
    Collected<std::string> out(
        map(model.value.stream(), [](int value) { return std::to_string(value) + "!"; }));
    model.value = 7;
    EXPECT_EQ(out.values, (std::vector<std::string>{"0!", "7!"}));
}

TEST(Stream, removeDuplicates_drops_a_value_equal_to_the_one_before_it) {
    Model model;
    Collected<int> out(removeDuplicates(model.value.stream()));
    for (const int value : {0, 1, 1, 2, 2, 2, 1, 0, 0}) model.value = value;
    EXPECT_EQ(out.values, (std::vector{0, 1, 2, 1, 0}));
}

TEST(Stream, dropFirst_leaves_out_the_replayed_value_alone) {
    Model model;
    Collected<int> out(dropFirst(model.value.stream()));
    EXPECT_TRUE(out.values.empty());
    model.value = 1;
    model.value = 1;
    EXPECT_EQ(out.values, (std::vector{1, 1}));
}

TEST(Stream, operators_compose_so_that_only_real_changes_after_the_first_value_come_through) {
    Model model;
    Collected<int> out(dropFirst(removeDuplicates(model.value.stream())));
    for (const int value : {0, 4, 4, 0}) model.value = value;
    EXPECT_EQ(out.values, (std::vector{4, 0}));
}

TEST(Stream, each_subscription_has_an_operator_state_of_its_own) {
    Model model;
    const auto stream = dropFirst(removeDuplicates(model.value.stream()));
    Collected<int> first(stream);
    model.value = 1;
    Collected<int> second(stream);
    model.value = 1;
    model.value = 2;
    EXPECT_EQ(first.values, (std::vector{1, 2}));
    EXPECT_EQ(second.values, std::vector{2});
}

TEST(Stream, merge_gives_the_values_of_all_sources_as_they_come) {
    Model a;
    Model b;
    b.value = 10;
    Collected<int> out(merge<int>({a.value.stream(), b.value.stream()}));
    b.value = 11;
    a.value = 1;
    EXPECT_EQ(out.values, (std::vector{0, 10, 11, 1}));
}

TEST(Stream, dropping_the_token_of_a_merge_ends_all_of_it) {
    Signal<> a;
    Signal<> b;
    Collected<Changed> out(merge<Changed>({changes(a), changes(b)}));
    a.emit();
    out.token.cancel();
    a.emit();
    b.emit();
    EXPECT_EQ(out.values.size(), 1u);
    EXPECT_FALSE(a.hasSubscribers() || b.hasSubscribers());
}

TEST(Stream, changes_replays_nothing_and_tells_each_emission) {
    Signal<> signal;
    Collected<Changed> out(changes(signal));
    EXPECT_TRUE(out.values.empty());
    signal.emit();
    signal.emit();
    EXPECT_EQ(out.values.size(), 2u);
}

TEST(Stream, deliverOn_hands_each_value_over_in_a_job_of_its_own_and_in_order) {
    Model model;
    QueueExecutor executor;
    Collected<int> out(deliverOn(model.value.stream(), executor));
    model.value = 1;
    EXPECT_TRUE(out.values.empty());
    EXPECT_TRUE(executor.runOne());
    EXPECT_EQ(out.values, std::vector{0});
    EXPECT_TRUE(executor.runOne());
    EXPECT_EQ(out.values, (std::vector{0, 1}));
    EXPECT_TRUE(executor.isEmpty());
}

TEST(Stream, deliverOn_delivers_nothing_after_its_token_has_gone) {
    Model model;
    QueueExecutor executor;
    Collected<int> out(deliverOn(model.value.stream(), executor));
    out.token.cancel();
    executor.drain();
    EXPECT_TRUE(out.values.empty());
}

TEST(Stream, a_handler_of_deliverOn_may_drop_its_own_token) {
    Model model;
    QueueExecutor executor;
    std::vector<int> values;
    Subscription token;
    token = deliverOn(model.value.stream(), executor)([&](int value) {
        token.cancel();
        values.push_back(value);
    });
    model.value = 1;
    executor.drain();
    EXPECT_EQ(values, std::vector{0});
}

}  // namespace
}  // namespace vtx
