// SPDX-License-Identifier: MIT
#include "base/Published.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vtx {
namespace {

struct Model : ObservableObject {
    Published<int> value{*this, 1};
    Published<std::vector<int>> series{*this};
};

TEST(Published, subscribing_replays_the_value) {
    Model model;
    std::vector<int> told;
    const auto token = model.value.subscribe([&](int value) { told.push_back(value); });
    EXPECT_EQ(told, std::vector{1});
    model.value = 2;
    EXPECT_EQ(told, (std::vector{1, 2}));
}

TEST(Published, its_own_subscribers_are_told_after_the_store_and_before_the_object_is) {
    Model model;
    std::vector<std::string> order;
    const auto object = model.objectWillChange.subscribe([&] { order.push_back("object"); });
    const auto own = model.value.subscribe(
        [&](int) { order.push_back("own " + std::to_string(model.value.get())); });
    order.clear();
    model.value = 5;
    EXPECT_EQ(order, (std::vector<std::string>{"own 5", "object"}));
}

TEST(Published, an_equal_value_is_told_too) {
    Model model;
    int told = 0;
    const auto token = model.objectWillChange.subscribe([&] { ++told; });
    model.value = 1;
    model.value = 1;
    EXPECT_EQ(told, 2);
}

TEST(Published, modifying_changes_in_place_and_tells_once) {
    Model model;
    model.series.modify([](auto& series) { series.reserve(8); });
    const int* before = model.series->data();
    int told = 0;
    const auto token = model.objectWillChange.subscribe([&] { ++told; });
    model.series.modify([](auto& series) {
        series.push_back(1);
        series.push_back(2);
    });
    EXPECT_EQ(told, 1);
    EXPECT_EQ(*model.series, (std::vector{1, 2}));
    EXPECT_EQ(model.series->data(), before);
}

TEST(Published, a_subscriber_that_stores_again_hears_of_it) {
    Model model;
    std::vector<int> told;
    const auto token = model.value.subscribe([&](int value) {
        told.push_back(value);
        if (value < 3) model.value = value + 1;
    });
    EXPECT_EQ(told, (std::vector{1, 2, 3}));
    EXPECT_EQ(*model.value, 3);
}

TEST(Published, a_subscriber_may_end_the_object) {
    auto model = std::make_unique<Model>();
    int others = 0;
    bool armed = false;
    const auto ends = model->value.subscribe([&](int) {
        if (armed) model.reset();
    });
    const auto other = model->value.subscribe([&](int) { ++others; });
    const auto object = model->objectWillChange.subscribe([&] { ++others; });
    armed = true;
    others = 0;
    model->value.set(2);
    EXPECT_EQ(model, nullptr);
    EXPECT_EQ(others, 0);
}

}  // namespace
}  // namespace vtx
