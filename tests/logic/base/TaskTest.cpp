// SPDX-License-Identifier: MIT
#include "base/Task.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Confined.h"
#include "base/QueueExecutor.h"

namespace vtx {
namespace {

/// Something to await that a test completes when it likes.
class Gate {
public:
    struct Awaiter {
        Gate& gate;
        ResumePoint point;
        bool await_ready() const { return false; }
        template <class Promise>
        void await_suspend(std::coroutine_handle<Promise> handle) {
            gate.waiting_ = std::make_shared<Suspension>();
            point.arm(handle, gate.waiting_);
        }
        void await_resume() const {}
    };
    Awaiter operator co_await() { return {*this, {}}; }
    void open() { resumeLater(waiting_); }

private:
    std::shared_ptr<Suspension> waiting_;
};

Task<int> answer(int value, int& ran) {
    ++ran;
    co_return value;
}

TEST(Task, it_does_not_run_before_it_is_started) {
    int ran = 0;
    {
        const auto task = answer(1, ran);
    }
    EXPECT_EQ(ran, 0);
}

TEST(Task, a_child_that_never_waits_completes_without_going_through_the_queue) {
    QueueExecutor home;
    int ran = 0;
    int result = 0;
    auto parent = [](int& r, int& out) -> Task<> { out = co_await answer(42, r); }(ran, result);
    parent.start(home);
    EXPECT_TRUE(parent.isDone());
    EXPECT_EQ(result, 42);
    EXPECT_TRUE(home.isEmpty());
}

Task<std::string> named(Gate& gate, std::string name, std::vector<std::string>& order) {
    order.push_back("start " + name);
    co_await gate;
    order.push_back("end " + name);
    co_return name;
}

TEST(Task, a_child_that_waited_resumes_its_parent_through_the_queue) {
    QueueExecutor home;
    Gate gate;
    std::vector<std::string> order;
    auto parent = [](Gate& g, auto& o) -> Task<> {
        const auto name = co_await named(g, "child", o);
        o.push_back("parent of " + name);
    }(gate, order);
    parent.start(home);
    gate.open();
    EXPECT_EQ(order.size(), 1u);
    home.runOne();
    EXPECT_EQ(order.back(), "end child");
    EXPECT_FALSE(parent.isDone());
    home.runOne();
    EXPECT_EQ(order.back(), "parent of child");
    EXPECT_TRUE(parent.isDone());
}

TEST(Task, one_started_early_proceeds_beside_its_owner_and_is_awaited_later) {
    QueueExecutor home;
    Gate gate;
    std::vector<std::string> order;
    auto parent = [](QueueExecutor& h, Gate& g, auto& o) -> Task<> {
        auto child = named(g, "child", o);
        child.start(h);
        o.push_back("meanwhile");
        co_await child;
        o.push_back("done");
    }(home, gate, order);
    parent.start(home);
    EXPECT_EQ(order, (std::vector<std::string>{"start child", "meanwhile"}));
    gate.open();
    home.drain();
    EXPECT_EQ(order.back(), "done");
}

TEST(Task, a_result_that_can_only_be_moved_comes_through) {
    QueueExecutor home;
    int result = 0;
    auto parent = [](int& out) -> Task<> {
        auto child = []() -> Task<std::unique_ptr<int>> { co_return std::make_unique<int>(9); };
        out = *co_await child();
    }(result);
    parent.start(home);
    EXPECT_EQ(result, 9);
}

TEST(Task, awaiting_a_hundred_thousand_children_in_a_loop_does_not_grow_the_stack) {
    QueueExecutor home;
    int ran = 0;
    auto loop = [](int& r) -> Task<> {
        for (int i = 0; i < 100'000; ++i) co_await answer(i, r);
    }(ran);
    loop.start(home);
    EXPECT_TRUE(loop.isDone());
    EXPECT_EQ(ran, 100'000);
}

struct Yield {
    ResumePoint point{};
    bool await_ready() const { return false; }
    template <class Promise>
    void await_suspend(std::coroutine_handle<Promise> handle) {
        auto state = std::make_shared<Suspension>();
        point.arm(handle, state);
        resumeLater(std::move(state));
    }
    void await_resume() const {}
};

Task<> yielding(int& ran) {
    co_await Yield{};
    ++ran;
}

TEST(Task, awaiting_a_hundred_thousand_children_that_wait_does_not_grow_the_stack) {
    QueueExecutor home;
    int ran = 0;
    auto loop = [](int& r) -> Task<> {
        for (int i = 0; i < 100'000; ++i) co_await yielding(r);
    }(ran);
    loop.start(home);
    home.drain();
    EXPECT_TRUE(loop.isDone());
    EXPECT_EQ(ran, 100'000);
}

TEST(Task, dropping_it_drops_what_its_frame_owns_children_included) {
    QueueExecutor home;
    Gate gate;
    const auto kept = std::make_shared<int>(1);
    {
        auto child = [](Gate& g, std::shared_ptr<int> mine) -> Task<> {
            co_await g;
            (void)mine;
        };
        auto parent = [](auto make, Gate& g, std::shared_ptr<int> mine) -> Task<> {
            co_await make(g, mine);
        }(child, gate, kept);
        parent.start(home);
        EXPECT_GT(kept.use_count(), 2);
    }
    EXPECT_EQ(kept.use_count(), 1);
}

TEST(Task, a_completion_that_comes_after_the_frame_has_gone_does_nothing) {
    QueueExecutor home;
    Gate gate;
    std::vector<std::string> order;
    {
        auto task = named(gate, "gone", order);
        task.start(home);
    }
    gate.open();
    EXPECT_EQ(home.drain(), 1u);
    EXPECT_EQ(order.size(), 1u);
}

TEST(Task, a_completion_that_is_queued_when_the_frame_goes_does_nothing) {
    QueueExecutor home;
    Gate gate;
    std::vector<std::string> order;
    {
        auto task = named(gate, "gone", order);
        task.start(home);
        gate.open();
    }
    EXPECT_EQ(home.drain(), 1u);
    EXPECT_EQ(order.size(), 1u);
}

Task<> waiting(Gate& gate, int number, std::vector<int>& order) {
    co_await gate;
    order.push_back(number);
}

TEST(WhenAll, it_is_done_when_the_last_one_is_in_whatever_order_they_end) {
    for (const auto& openings : {std::vector{0, 1, 2}, {2, 1, 0}, {1, 2, 0}}) {
        QueueExecutor home;
        std::vector<Gate> gates(3);
        std::vector<int> order;
        auto all = whenAll(home, waiting(gates[0], 0, order), waiting(gates[1], 1, order),
                           waiting(gates[2], 2, order));
        all.start(home);
        for (const int which : openings) {
            EXPECT_FALSE(all.isDone());
            gates[static_cast<std::size_t>(which)].open();
            home.drain();
        }
        EXPECT_TRUE(all.isDone());
        EXPECT_EQ(order, openings);
    }
}

TEST(WhenAll, all_are_started_in_order_before_any_is_awaited) {
    QueueExecutor home;
    Gate first;
    Gate second;
    std::vector<std::string> order;
    auto all = whenAll(home, named(first, "a", order), named(second, "b", order));
    all.start(home);
    EXPECT_EQ(order, (std::vector<std::string>{"start a", "start b"}));
}

TEST(WhenAll, of_tasks_that_never_wait_is_done_at_once) {
    QueueExecutor home;
    int ran = 0;
    auto all = whenAll(home, answer(1, ran), answer(2, ran));
    all.start(home);
    EXPECT_TRUE(all.isDone());
    EXPECT_EQ(ran, 2);
}

/// An engine that says when it goes.
struct Counter {
    explicit Counter(bool* ended = nullptr) : gone(ended) {}
    ~Counter() {
        if (gone) *gone = true;
    }
    int next() { return ++count; }
    std::unique_ptr<int> nextOwned() { return std::make_unique<int>(++count); }
    int count = 0;
    bool* gone;
};

Task<> step(const Confined<Counter>& engine, std::vector<int>& results) {
    results.push_back(co_await engine.run(&Counter::next));
}

TEST(Confined, a_step_runs_on_the_engines_executor_and_its_result_comes_home) {
    QueueExecutor home;
    QueueExecutor other;
    const Confined<Counter> engine(other, std::make_shared<Counter>());
    std::vector<int> results;
    auto task = step(engine, results);
    task.start(home);
    EXPECT_TRUE(home.isEmpty());
    other.runOne();
    EXPECT_TRUE(results.empty());
    home.runOne();
    EXPECT_EQ(results, std::vector{1});
}

TEST(Confined, a_result_that_can_only_be_moved_comes_home) {
    QueueExecutor home;
    const Confined<Counter> engine(home, std::make_shared<Counter>());
    int result = 0;
    auto task = [](auto& e, int& out) -> Task<> {
        const auto owned = co_await e.run(&Counter::nextOwned);
        out = *owned;
    }(engine, result);
    task.start(home);
    home.drain();
    EXPECT_EQ(result, 1);
}

TEST(Confined, the_engine_lives_until_a_step_under_way_has_ended) {
    QueueExecutor home;
    QueueExecutor other;
    bool gone = false;
    {
        const Confined<Counter> engine(other, std::make_shared<Counter>(&gone));
        std::vector<int> results;
        auto task = step(engine, results);
        task.start(home);
    }
    EXPECT_FALSE(gone);
    other.drain();
    EXPECT_TRUE(gone);
    home.drain();  // the completion finds no frame
}

}  // namespace
}  // namespace vtx
