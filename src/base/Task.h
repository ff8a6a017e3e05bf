// SPDX-License-Identifier: MIT
#pragma once

#include <coroutine>
#include <exception>
#include <memory>
#include <optional>
#include <utility>

#include "base/Executor.h"

namespace vtx {

/// Where a coroutine is suspended. Its resumption is a job of the executor on which the coroutine
/// lives, and does nothing once the frame has gone, so whoever completes need not know either.
struct Suspension {
    std::coroutine_handle<> handle;
    Executor* home = nullptr;
};

/// A member of every awaiter that suspends: lives in the frame and, going with it, disarms the
/// resumption that may still be under way.
class ResumePoint {
public:
    ResumePoint() = default;
    ResumePoint(const ResumePoint&) = delete;
    ResumePoint& operator=(const ResumePoint&) = delete;
    ~ResumePoint() {
        if (armed_) armed_->handle = nullptr;
    }

    /// Takes what is to be resumed; `state` may be part of a larger shared state.
    template <class Promise>
    void arm(std::coroutine_handle<Promise> handle, std::shared_ptr<Suspension> state) {
        state->handle = handle;
        state->home = handle.promise().home;
        armed_ = std::move(state);
    }

private:
    std::shared_ptr<Suspension> armed_;
};

/// Resumes at once. On the coroutine's executor only.
inline void resumeNow(const std::shared_ptr<Suspension>& at) {
    if (at->handle) std::exchange(at->handle, nullptr).resume();
}

/// Resumes in a job on the coroutine's executor. Any thread.
inline void resumeLater(std::shared_ptr<Suspension> at) {
    Executor& home = *at->home;
    home.post([at = std::move(at)] { resumeNow(at); });
}

struct TaskPromiseBase {
    Executor* home = nullptr;
    std::shared_ptr<Suspension> waiter;

    struct FinalAwaiter {
        bool await_ready() noexcept { return false; }
        template <class Promise>
        void await_suspend(std::coroutine_handle<Promise> handle) noexcept {
            // Through the queue: a chain of completions must not grow the stack.
            if (auto next = std::move(handle.promise().waiter)) resumeLater(std::move(next));
        }
        void await_resume() noexcept {}
    };

    std::suspend_always initial_suspend() noexcept { return {}; }
    FinalAwaiter final_suspend() noexcept { return {}; }
    [[noreturn]] void unhandled_exception() { std::terminate(); }
};

template <class T>
struct TaskPromise;

/// Work in steps on one executor, between which it waits for others. Lazy: it runs when awaited or
/// started. Owning: dropping a task drops its frame wherever it is suspended, and with it all that
/// the frame owns, its own children included. An exception that leaves it ends the program.
template <class T = void>
class [[nodiscard]] Task {
public:
    using promise_type = TaskPromise<T>;
    using Handle = std::coroutine_handle<promise_type>;

    explicit Task(Handle handle) : handle_(handle) {}
    Task(Task&& other) noexcept
        : handle_(std::exchange(other.handle_, nullptr)), started_(other.started_) {}
    Task& operator=(Task&&) = delete;
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;
    ~Task() {
        if (handle_) handle_.destroy();
    }

    /// Runs up to the first wait, so that it proceeds beside its owner, who awaits it later.
    void start(Executor& home) {
        handle_.promise().home = &home;
        started_ = true;
        handle_.resume();
    }

    [[nodiscard]] bool isDone() const { return handle_.done(); }

    auto operator co_await() & noexcept { return Awaiter{*this, {}}; }
    auto operator co_await() && noexcept { return Awaiter{*this, {}}; }

private:
    struct Awaiter {
        Task& task;
        ResumePoint point;

        bool await_ready() noexcept { return task.started_ && task.isDone(); }
        template <class Promise>
        bool await_suspend(std::coroutine_handle<Promise> parent) {
            if (!task.started_) task.start(*parent.promise().home);
            if (task.isDone()) return false;
            auto state = std::make_shared<Suspension>();
            point.arm(parent, state);
            task.handle_.promise().waiter = std::move(state);
            return true;
        }
        T await_resume() { return task.handle_.promise().take(); }
    };

    Handle handle_;
    bool started_ = false;
};

template <class T>
struct TaskPromise : TaskPromiseBase {
    std::optional<T> result;

    Task<T> get_return_object() {
        return Task<T>(std::coroutine_handle<TaskPromise>::from_promise(*this));
    }
    void return_value(T value) { result = std::move(value); }
    T take() { return std::move(*result); }
};

template <>
struct TaskPromise<void> : TaskPromiseBase {
    Task<void> get_return_object() {
        return Task<void>(std::coroutine_handle<TaskPromise>::from_promise(*this));
    }
    void return_void() {}
    void take() {}
};

/// Awaits all of them, which proceed side by side; done when the last one is.
template <class... T>
Task<void> whenAll(Executor& home, Task<T>... tasks) {
    (tasks.start(home), ...);
    (co_await tasks, ...);
}

}  // namespace vtx
