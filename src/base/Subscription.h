// SPDX-License-Identifier: MIT
#pragma once

#include <utility>
#include <vector>

#include "base/Job.h"

namespace vtx {

/// An owning token of something that goes on until the token goes: an observer, a timer, a watched
/// descriptor. Dropping it, or assigning another one over it, ends that something at once.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(Job cancel) : cancel_(std::move(cancel)) {}
    Subscription(Subscription&& other) noexcept : cancel_(std::move(other.cancel_)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            cancel();
            cancel_ = std::move(other.cancel_);
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { cancel(); }

    explicit operator bool() const { return static_cast<bool>(cancel_); }

    void cancel() {
        if (!cancel_) return;
        Job job = std::move(cancel_);
        job();
    }

private:
    Job cancel_;
};

/// Tokens that live and go together.
using Subscriptions = std::vector<Subscription>;

}  // namespace vtx
