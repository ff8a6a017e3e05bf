// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "base/ObservableObject.h"
#include "base/Stream.h"

namespace vtx {

/// A value of an observable object that others may follow. Each store tells the value's own
/// subscribers, then the object's `objectWillChange`, whether or not the value differs: where a
/// value changes rarely, its owner compares first. Confined to the main executor.
template <class T>
class Published {
public:
    explicit Published(ObservableObject& owner, T initial = T{})
        : owner_(owner), value_(std::move(initial)) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    const T& get() const { return value_; }
    const T& operator*() const { return value_; }
    const T* operator->() const { return &value_; }

    void set(T value) {
        value_ = std::move(value);
        tell();
    }
    Published& operator=(T value) {
        set(std::move(value));
        return *this;
    }

    /// Changes the value in place and tells once, so that a long series is never copied.
    template <class F>
    void modify(F&& change) {
        std::forward<F>(change)(value_);
        tell();
    }

    /// Tells the present value at once and then each stored one.
    [[nodiscard]] Subscription subscribe(std::function<void(const T&)> handler) const {
        return changed_.subscribeTelling(std::move(handler), value_);
    }

    [[nodiscard]] bool hasSubscribers() const { return changed_.hasSubscribers(); }

    /// The same as a stream, to be put through operators. It must not outlive the object.
    [[nodiscard]] Stream<T> stream() const {
        return
            [this](std::function<void(const T&)> handler) { return subscribe(std::move(handler)); };
    }

private:
    void tell() {
        // A subscriber may store again; those after it then see the newest value twice.
        // One may also end the object, and this value with it.
        if (changed_.emit(value_)) owner_.objectWillChange.emit();
    }

    ObservableObject& owner_;
    T value_;
    Signal<T> changed_;
};

}  // namespace vtx
