// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "base/Clock.h"
#include "base/Executor.h"
#include "platform/linux/GatheringExecutor.h"

namespace vtx {

/// One figure, or one record of figures, whose source may block, so that nobody reads it on his own
/// thread. Reads run on a worker, one at a time, and only because somebody asked: no call, no read.
///
/// `read` waits for a fresh value, for a short while: for the search for devices, and for whoever
/// does not know a value yet. `latest` never waits: it returns what the last read gave and asks for
/// the next one. A source that hangs makes its value old, and an old value counts as a failed read;
/// nothing else is asked of it until it answers.
///
/// Owned by a port or by a part of one; the worker and the clock outlive it. A read that is still
/// hanging outlives everything, so the function owns what it uses. Any thread.
template <class T>
class SlowRead {
public:
    /// Gives the value, or nothing where the source fails. Runs on the worker.
    using Function = std::function<std::optional<T>()>;

    /// How long `read` waits.
    static constexpr Duration usualPatience = std::chrono::milliseconds(200);
    /// A value that is older counts as a failed read.
    static constexpr Duration longestAge = std::chrono::seconds(12);

    SlowRead(Executor& worker, const Clock& clock, Function function,
             Duration patience = usualPatience)
        : worker_(worker),
          patience_(patience),
          state_(std::make_shared<State>(std::move(function), clock)) {}
    SlowRead(const SlowRead&) = delete;
    SlowRead& operator=(const SlowRead&) = delete;
    ~SlowRead() {
        const std::lock_guard lock(state_->mutex);
        state_->clock = nullptr;
    }

    /// Asks, and waits for the answer; absent where the source fails or does not answer in time.
    /// One that answers later has its value told by `latest`.
    [[nodiscard]] std::optional<T> read() {
        State& state = *state_;
        const auto seen = state.locked([&] { return state.answers; });
        ask(Haste::awaited);
        std::unique_lock lock(state.mutex);
        const bool isAnswered =
            state.answered.wait_for(lock, patience_, [&] { return state.answers != seen; });
        return isAnswered ? state.value : std::nullopt;
    }

    /// What the last read gave; absent before one has ended, where it failed, and where it ended
    /// too long ago. Asks for the next one.
    [[nodiscard]] std::optional<T> latest() {
        State& state = *state_;
        auto value = state.locked([&] {
            const bool isOld = state.clock->continuous() - state.time > longestAge;
            return isOld ? std::nullopt : state.value;
        });
        ask(Haste::none);
        return value;
    }

    /// How many reads have ended, whatever they gave.
    [[nodiscard]] std::uint64_t answers() const {
        return state_->locked([&state = *state_] { return state.answers; });
    }

private:
    /// Shared with the read under way.
    struct State {
        State(Function f, const Clock& c) : function(std::move(f)), clock(&c) {}
        auto locked(auto&& look) {
            const std::lock_guard lock(mutex);
            return look();
        }

        const Function function;
        std::mutex mutex;  ///< of all below
        std::condition_variable answered;
        const Clock* clock;  ///< null once nobody will ask again
        bool isAsked = false;
        std::uint64_t answers = 0;
        std::optional<T> value;
        Instant time{};  ///< when it came
    };

    enum class Haste : std::uint8_t { none, awaited };

    /// Not with the state locked: a test's worker may run the read inside the call.
    void ask(Haste haste) {
        if (state_->locked([this] { return std::exchange(state_->isAsked, true); })) {
            // The worker may still keep what nobody waited for until now.
            if (haste == Haste::awaited) worker_.post([] {});
            return;
        }
        auto job = [state = state_] {
            if (!state->locked([&] { return state->clock; })) return;
            auto value = state->function();
            const std::lock_guard lock(state->mutex);
            if (!state->clock) return;
            state->value = std::move(value);
            state->time = state->clock->continuous();
            state->isAsked = false;
            ++state->answers;
            state->answered.notify_all();
        };
        if (haste == Haste::awaited)
            worker_.post(std::move(job));
        else
            postSoon(worker_, std::move(job));
    }

    Executor& worker_;
    const Duration patience_;
    const std::shared_ptr<State> state_;
};

}  // namespace vtx
