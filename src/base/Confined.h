// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "base/Task.h"

namespace vtx {

/// An engine whose state only the jobs of one executor touch. `co_await engine.run(&Engine::step)`
/// runs one step there, whole, and resumes on the executor of the awaiting task with the result.
/// The engine lives until the last step under way has ended, even if its owner has gone.
template <class Engine>
class Confined {
public:
    Confined(Executor& executor, std::shared_ptr<Engine> engine)
        : executor_(executor), engine_(std::move(engine)) {}

    template <class Result>
    [[nodiscard]] auto run(Result (Engine::*step)()) const {
        return Awaiter<Result>{executor_, engine_, step, {}, {}};
    }

private:
    template <class Result>
    struct State : Suspension {
        std::optional<Result> result;
        Executor* executor = nullptr;  ///< that of the step
    };

    template <class Result>
    struct Awaiter {
        Executor& executor;
        std::shared_ptr<Engine> engine;
        Result (Engine::*step)();
        ResumePoint point;
        std::shared_ptr<State<Result>> state;

        bool await_ready() const { return false; }
        template <class Promise>
        void await_suspend(std::coroutine_handle<Promise> handle) {
            state = std::make_shared<State<Result>>();
            point.arm(handle, state);
            state->executor = &executor;
            executor.post([engine = std::move(engine), step = step, state = state]() mutable {
                state->result.emplace(((*engine).*step)());
                Executor& home = *state->home;
                state->executor->tell(home, [state = std::move(state)] { resumeNow(state); });
            });
        }
        Result await_resume() { return std::move(*state->result); }
    };

    Executor& executor_;
    std::shared_ptr<Engine> engine_;
};

}  // namespace vtx
