// SPDX-License-Identifier: MIT
#pragma once

#include <list>
#include <utility>

#include "platform/linux/RunLoop.h"

namespace vtx::test {

/// A run loop in which the test says which descriptor is ready.
class FakeRunLoop final : public RunLoop {
public:
    [[nodiscard]] Subscription watch(int fd, short pollEvents,
                                     std::function<void()> ready) override {
        const auto at = watches_.insert(watches_.end(), {fd, pollEvents, std::move(ready)});
        return Subscription([this, at] { watches_.erase(at); });
    }

    /// Calls the handler of the watch number `index`, in the order of their making.
    void fire(std::size_t index) {
        const auto ready = std::next(watches_.begin(), static_cast<std::ptrdiff_t>(index))->ready;
        ready();
    }
    [[nodiscard]] std::size_t watched() const { return watches_.size(); }
    [[nodiscard]] short events(std::size_t index) const {
        return std::next(watches_.begin(), static_cast<std::ptrdiff_t>(index))->events;
    }

private:
    struct Watch {
        int fd;
        short events;
        std::function<void()> ready;
    };
    std::list<Watch> watches_;
};

}  // namespace vtx::test
