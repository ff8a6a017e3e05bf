// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "base/Clock.h"
#include "base/Executor.h"
#include "base/Signal.h"

namespace vtx {

/// Values over time: subscribing starts them, the token ends them.
template <class T>
using Stream = std::function<Subscription(std::function<void(const T&)>)>;

/// What a stream that only says "something changed" carries.
struct Changed {
    friend bool operator==(Changed, Changed) = default;
};

/// A signal without arguments as a stream; nothing is replayed.
inline Stream<Changed> changes(const Signal<>& signal) {
    return [&signal](std::function<void(const Changed&)> next) {
        return signal.subscribe([next = std::move(next)] { next(Changed{}); });
    };
}

template <class T, class F>
auto map(Stream<T> source, F transform) -> Stream<std::invoke_result_t<F&, const T&>> {
    using U = std::invoke_result_t<F&, const T&>;
    return [source = std::move(source), transform](std::function<void(const U&)> next) {
        return source([transform, next = std::move(next)](const T& value) mutable {
            next(transform(value));
        });
    };
}

/// Passes on a value only if it differs from the one before it.
template <class T>
Stream<T> removeDuplicates(Stream<T> source) {
    return [source = std::move(source)](std::function<void(const T&)> next) {
        return source([last = std::optional<T>{}, next = std::move(next)](const T& value) mutable {
            if (last && *last == value) return;
            last = value;
            next(value);
        });
    };
}

/// Leaves out the first value, which for a published value is the replayed one.
template <class T>
Stream<T> dropFirst(Stream<T> source) {
    return [source = std::move(source)](std::function<void(const T&)> next) {
        return source([first = true, next = std::move(next)](const T& value) mutable {
            if (!std::exchange(first, false)) next(value);
        });
    };
}

/// The values of all sources, as they come; subscribed to in the order given.
template <class T>
Stream<T> merge(std::vector<Stream<T>> sources) {
    return [sources = std::move(sources)](const std::function<void(const T&)>& next) {
        auto all = std::make_shared<Subscriptions>();
        for (const auto& source : sources) all->push_back(source(next));
        return Subscription([all] { all->clear(); });
    };
}

/// Hands each value over in a job of its own on `executor`. The executor must outlive the token.
template <class T>
Stream<T> deliverOn(Stream<T> source, Executor& executor) {
    return [source = std::move(source), &executor](std::function<void(const T&)> next) {
        auto alive = std::make_shared<std::function<void(const T&)>>(std::move(next));
        auto token = source([weak = std::weak_ptr(alive), &executor](const T& value) {
            executor.post([weak, value] {
                if (const auto handler = weak.lock()) (*handler)(value);
            });
        });
        return Subscription([alive = std::move(alive), token = std::move(token)]() mutable {
            token.cancel();
            alive.reset();
        });
    };
}

/// At most one value in each `interval`, always posted to `executor`, the leading one included.
/// A value that comes within the interval waits for its end; of several the last one is kept. No
/// timer runs while nothing waits. Values must come on `executor`, which is the clock's own.
template <class T>
Stream<T> throttleLatest(Stream<T> source, Duration interval, Clock& clock, Executor& executor) {
    struct Gate {
        std::function<void(const T&)> next;
        std::optional<T> waiting;
        std::optional<Instant> lastOpened;
        Subscription timer;
    };
    return [source = std::move(source), interval, &clock,
            &executor](std::function<void(const T&)> next) {
        auto gate = std::make_shared<Gate>();
        gate->next = std::move(next);
        const auto release = [weak = std::weak_ptr<Gate>(gate), &clock] {
            const auto open = weak.lock();
            if (!open) return;
            open->lastOpened = clock.continuous();
            const T value = *std::exchange(open->waiting, std::nullopt);
            open->next(value);
        };
        auto token = source([weak = std::weak_ptr<Gate>(gate), interval, &clock, &executor,
                             release](const T& value) {
            const auto held = weak.lock();
            if (!held) return;
            const bool alreadyWaiting = held->waiting.has_value();
            held->waiting = value;
            if (alreadyWaiting) return;
            const Instant now = clock.continuous();
            if (!held->lastOpened || now - *held->lastOpened >= interval) {
                executor.post(release);
                return;
            }
            const Instant end = *held->lastOpened + interval;
            held->timer = clock.schedule(end, interval / 10, release);
        });
        return Subscription([gate = std::move(gate), token = std::move(token)]() mutable {
            token.cancel();
            gate.reset();
        });
    };
}

}  // namespace vtx
