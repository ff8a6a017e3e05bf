// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

#include "base/Task.h"

namespace vtx {

/// An engine whose state only the jobs of one executor touch. `co_await engine.run(&Engine::step)`
/// runs one step there, whole, and resumes on the executor of the awaiting task with the result.
/// What a step takes is copied when the task awaits.
/// The engine lives until the last step under way has ended, even if its owner has gone.
template <class Engine>
class Confined {
public:
    Confined(Executor& executor, std::shared_ptr<Engine> engine)
        : executor_(executor), engine_(std::move(engine)) {}

    template <class Result, class... Parameters>
    [[nodiscard]] auto run(Result (Engine::*step)(Parameters...),
                           std::type_identity_t<Parameters>... arguments) const {
        return Awaiter<Result, Parameters...>{executor_, engine_, step, {std::move(arguments)...},
                                              {},        {}};
    }

private:
    /// The arguments lie here, so that the job stays small enough to need no memory of its own.
    template <class Result, class... Parameters>
    struct State : Suspension {
        std::tuple<Parameters...> arguments;
        std::optional<Result> result;
    };

    template <class Result, class... Parameters>
    struct Awaiter {
        Executor& executor;
        std::shared_ptr<Engine> engine;
        Result (Engine::*step)(Parameters...);
        std::tuple<Parameters...> arguments;
        ResumePoint point;
        std::shared_ptr<State<Result, Parameters...>> state;

        bool await_ready() const { return false; }
        template <class Promise>
        void await_suspend(std::coroutine_handle<Promise> handle) {
            state = std::make_shared<State<Result, Parameters...>>();
            state->arguments = std::move(arguments);
            point.arm(handle, state);
            executor.post([engine = std::move(engine), step = step, state = state]() mutable {
                const auto call = [&](Parameters&... each) {
                    return ((*engine).*step)(std::move(each)...);
                };
                state->result.emplace(std::apply(call, state->arguments));
                resumeLater(std::move(state));
            });
        }
        Result await_resume() { return std::move(*state->result); }
    };

    Executor& executor_;
    std::shared_ptr<Engine> engine_;
};

}  // namespace vtx
