// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "base/Task.h"

namespace vtx {

/// What a task `co_await`s of an operation that calls back with its result: from any thread, and
/// perhaps before the operation returns. A second result is ignored, and one that comes when the
/// task has gone is dropped. Awaited once, as a variable of the task.
template <class T>
class Completion {
public:
    using Handler = std::function<void(T)>;

    /// The operation, which begins when it is awaited and takes whom to call.
    explicit Completion(std::function<void(Handler)> begin) : begin_(std::move(begin)) {}
    Completion(const Completion&) = delete;
    Completion& operator=(const Completion&) = delete;

    bool await_ready() const { return false; }
    template <class Promise>
    void await_suspend(std::coroutine_handle<Promise> handle) {
        auto state = std::make_shared<State>();
        state_ = state;
        point_.arm(handle, state);
        // Out of the frame, which may go meanwhile.
        const auto begin = std::move(begin_);
        begin([state](T result) {
            if (state->result) return;
            state->result.emplace(std::move(result));
            resumeLater(state);
        });
    }
    T await_resume() { return std::move(*state_->result); }

private:
    struct State : Suspension {
        std::optional<T> result;
    };

    std::function<void(Handler)> begin_;
    std::shared_ptr<State> state_;
    ResumePoint point_;
};

}  // namespace vtx
