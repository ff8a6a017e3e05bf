// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxThermalState.h"

#include <mutex>
#include <utility>

#include "base/Signal.h"
#include "platform/linux/ThermalZones.h"

namespace vtx {

/// What the reads leave for the port. A read that hangs may outlive the port and main itself.
struct LinuxThermalState::Shared : std::enable_shared_from_this<Shared> {
    /// On the worker.
    void store(int now) {
        const std::lock_guard lock(mutex);
        const auto before = std::exchange(level, now);
        if (!before || before == now || !main) return;  // the first one changes nothing
        main->post([weak = weak_from_this()] {
            const auto self = weak.lock();
            if (self && self->changed) self->changed->emit();
        });
    }

    std::mutex mutex;
    Executor* main = nullptr;  ///< null once the port has gone
    std::optional<int> level;

    std::optional<Signal<>> changed{std::in_place};  ///< main executor alone
};

LinuxThermalState::LinuxThermalState(const LinuxRoot& root, const Clock& clock, Executor& main,
                                     Executor& worker, std::shared_ptr<DeviceChanges> changes)
    : root_(root),
      changes_(std::move(changes)),
      shared_(std::make_shared<Shared>()),
      reads_(worker, clock,
             [shared = shared_,
              zones = std::make_shared<ThermalZones>(root, changes_)]() -> std::optional<int> {
                 const auto level = zones->level();
                 shared->store(level.value_or(0));
                 return level;
             }) {
    shared_->main = &main;
}

LinuxThermalState::~LinuxThermalState() {
    shared_->changed.reset();
    const std::lock_guard lock(shared_->mutex);
    shared_->main = nullptr;
}

std::int64_t LinuxThermalState::thermalState() {
    if (const auto now = changes_->generation(); now != generation_) {
        generation_ = now;
        hasZones_ = ThermalZones::areThere(root_);
    }
    if (!hasZones_) return 0;
    const auto level = std::exchange(hasRead_, true) ? reads_.latest() : reads_.read();
    if (!level) return 0;
    const std::lock_guard lock(shared_->mutex);
    return shared_->level.value_or(0);  // which may be newer by a moment
}

Subscription LinuxThermalState::onThermalStateDidChange(std::function<void()> handler) {
    return shared_->changed->subscribe(std::move(handler));
}

}  // namespace vtx
