// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace vtx {

/// A piece of work that runs at most once and can own what it works on: a `void()` callable that
/// moves but never copies. Callables of up to 48 bytes are kept inside, so that posting a
/// resumption or a small lambda allocates nothing.
class Job {
public:
    Job() = default;

    template <class F>
        requires(!std::same_as<std::remove_cvref_t<F>, Job> &&
                 std::invocable<std::remove_cvref_t<F>&>)
    Job(F&& work) {  // NOLINT(google-explicit-constructor): a lambda is a job
        using Work = std::remove_cvref_t<F>;
        if constexpr (sizeof(Work) <= sizeof(storage_) &&
                      alignof(Work) <= alignof(std::max_align_t) &&
                      std::is_nothrow_move_constructible_v<Work>) {
            ::new (static_cast<void*>(storage_)) Work(std::forward<F>(work));
            table_ = &inlineTable<Work>;
        } else {
            auto owned = std::make_unique<Work>(std::forward<F>(work));
            ::new (static_cast<void*>(storage_)) Work* {owned.release()};
            table_ = &heapTable<Work>;
        }
    }

    Job(Job&& other) noexcept { take(other); }
    Job& operator=(Job&& other) noexcept {
        if (this != &other) {
            reset();
            take(other);
        }
        return *this;
    }
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    ~Job() { reset(); }

    explicit operator bool() const { return table_ != nullptr; }
    void operator()() { table_->run(storage_); }

    void reset() {
        if (table_) std::exchange(table_, nullptr)->destroy(storage_);
    }

private:
    struct Table {
        void (*run)(std::byte*);
        void (*move)(std::byte* from, std::byte* to);
        void (*destroy)(std::byte*);
    };

    template <class Work>
    static Work* as(std::byte* at) {
        return std::launder(reinterpret_cast<Work*>(at));
    }

    template <class Work>
    static constexpr Table inlineTable{[](std::byte* at) { (*as<Work>(at))(); },
                                       [](std::byte* from, std::byte* to) {
                                           ::new (static_cast<void*>(to))
                                               Work(std::move(*as<Work>(from)));
                                           as<Work>(from)->~Work();
                                       },
                                       [](std::byte* at) { as<Work>(at)->~Work(); }};

    template <class Work>
    static constexpr Table heapTable{
        [](std::byte* at) { (**as<Work*>(at))(); },
        [](std::byte* from, std::byte* to) {
            ::new (static_cast<void*>(to)) Work* {*as<Work*>(from)};
        },
        [](std::byte* at) { std::unique_ptr<Work>{*as<Work*>(at)}.reset(); }};

    void take(Job& other) {
        if (!other.table_) return;
        other.table_->move(other.storage_, storage_);
        table_ = std::exchange(other.table_, nullptr);
    }

    alignas(std::max_align_t) std::byte storage_[48];
    const Table* table_ = nullptr;
};

}  // namespace vtx
