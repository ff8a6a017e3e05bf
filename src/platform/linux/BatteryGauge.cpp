// SPDX-License-Identifier: MIT
#include "platform/linux/BatteryGauge.h"

#include <chrono>

namespace vtx {
namespace {

constexpr Duration sameMoment = std::chrono::milliseconds(20);
/// Longer than between two passes that ask.
constexpr Duration pause = std::chrono::seconds(3);
constexpr Duration patience = std::chrono::milliseconds(50);

}  // namespace

BatteryGauge::BatteryGauge(const LinuxRoot& root, const Clock& clock, Executor& worker,
                           std::shared_ptr<DeviceChanges> changes)
    : root_(root),
      clock_(clock),
      changes_(std::move(changes)),
      reads_(
          worker, clock,
          [reader = std::make_shared<BatteryReader>(root, changes_)] { return reader->read(); },
          patience) {}

bool BatteryGauge::hasBattery() {
    const std::lock_guard lock(mutex_);
    if (const auto now = changes_->generation(); now != generation_) {
        generation_ = now;
        hasBattery_ = !findBatteries(root_).empty();
    }
    return hasBattery_;
}

std::optional<BatteryState> BatteryGauge::state() {
    const std::lock_guard lock(mutex_);
    const auto now = clock_.continuous();
    if (lastTime_ && now - *lastTime_ <= sameMoment) return last_;
    const bool isAfterPause = lastTime_ && now - *lastTime_ > pause;
    if (isAfterPause && mayWait_) last_ = reads_.read();
    if (!isAfterPause || !last_) last_ = reads_.latest();
    if (!isAfterPause && !last_ && mayWait_) last_ = reads_.read();
    mayWait_ = last_.has_value();
    lastTime_ = now;
    return last_;
}

}  // namespace vtx
