// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "base/Subscription.h"

namespace vtx {

/// Tells any number of subscribers, in the order in which they subscribed. Confined to one
/// executor. A subscriber may subscribe, unsubscribe itself or others, or destroy the signal while
/// it is told; one that joined during an emission is told from the next one on, and with the signal
/// its emission ends. Handlers are called in place, so one may keep a state of its own.
template <class... Args>
class Signal {
public:
    using Handler = std::function<void(const Args&...)>;

    Signal() : core_(std::make_shared<Core>()) {}
    ~Signal() { core_->gone = true; }
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    [[nodiscard]] Subscription subscribe(Handler handler) const {
        return tokenOf(join(std::move(handler)));
    }

    /// As `subscribe`, and tells the new subscriber `args` before it returns.
    [[nodiscard]] Subscription subscribeTelling(Handler handler, const Args&... args) const {
        const auto slot = join(std::move(handler));
        Subscription token = tokenOf(slot);
        slot->handler(args...);
        return token;
    }

    /// False if a subscriber destroyed the signal: its owner is then gone too.
    bool emit(const Args&... args) const {
        const auto core = core_;
        const Emission emission(*core);
        const std::size_t count = core->slots.size();
        for (std::size_t i = 0; i < count && !core->gone; ++i) {
            const Slot& slot = *core->slots[i];  // stays: nothing is swept during an emission
            if (slot.active) slot.handler(args...);
        }
        return !core->gone;
    }

    [[nodiscard]] bool hasSubscribers() const {
        return std::ranges::any_of(core_->slots, [](const auto& slot) { return slot->active; });
    }

private:
    struct Slot {
        explicit Slot(Handler h) : handler(std::move(h)) {}
        Handler handler;
        bool active = true;
    };

    struct Core {
        std::vector<std::shared_ptr<Slot>> slots;
        int depth = 0;
        bool hasInactive = false;
        bool gone = false;

        void sweep() {
            if (depth != 0 || !std::exchange(hasInactive, false)) return;
            // What a handler owns may end subscriptions of this signal: it goes after the erasing.
            std::vector<std::shared_ptr<Slot>> dropped;
            std::ranges::copy_if(slots, std::back_inserter(dropped),
                                 [](const auto& slot) { return !slot->active; });
            std::erase_if(slots, [](const auto& slot) { return !slot->active; });
        }
    };

    class Emission {
    public:
        explicit Emission(Core& core) : core_(core) { ++core_.depth; }
        ~Emission() {
            --core_.depth;
            core_.sweep();
        }
        Emission(const Emission&) = delete;
        Emission& operator=(const Emission&) = delete;

    private:
        Core& core_;
    };

    std::shared_ptr<Slot> join(Handler handler) const {
        return core_->slots.emplace_back(std::make_shared<Slot>(std::move(handler)));
    }

    Subscription tokenOf(std::shared_ptr<Slot> slot) const {
        return Subscription([core = std::weak_ptr(core_), slot = std::move(slot)] {
            slot->active = false;
            const auto alive = core.lock();
            if (!alive) return;
            alive->hasInactive = true;
            alive->sweep();
        });
    }

    std::shared_ptr<Core> core_;
};

}  // namespace vtx
