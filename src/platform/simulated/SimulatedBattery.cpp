// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedBattery.h"

#include <chrono>
#include <cmath>
#include <string>

namespace vtx {
namespace {

constexpr Duration halfRound = std::chrono::minutes(10);
constexpr double fullest = 1.0;
constexpr double emptiest = 0.4;
constexpr std::int64_t lostSign = std::int64_t{1} << 32;

bool drainsAt(Duration since) { return since / halfRound % 2 == 0; }

void add(PropertyMap& into, const char* key, const std::optional<std::int64_t>& value) {
    if (value) into.emplace(key, *value);
}

std::int64_t rounded(double value) { return std::llround(value); }

}  // namespace

void SimulatedBattery::set(const BatteryFigures& figures) {
    const std::lock_guard lock(mutex_);
    figures_ = figures;
    livingSince_.reset();
}

void SimulatedBattery::live() {
    const std::lock_guard lock(mutex_);
    livingSince_ = clock_.continuous();
}

std::optional<bool> SimulatedBattery::isDraining() const {
    const std::lock_guard lock(mutex_);
    if (!livingSince_) return std::nullopt;
    return drainsAt(clock_.continuous() - *livingSince_);
}

BatteryFigures SimulatedBattery::figures() const {
    const std::lock_guard lock(mutex_);
    return livingSince_ ? living(clock_.continuous() - *livingSince_) : figures_;
}

BatteryFigures SimulatedBattery::living(Duration since) const {
    const bool drains = drainsAt(since);
    const double part = toSeconds(since % halfRound) / toSeconds(halfRound);
    const double level =
        drains ? std::lerp(fullest, emptiest, part) : std::lerp(emptiest, fullest, part);
    BatteryFigures now = figures_;
    const auto max = static_cast<double>(now.rawMaxCapacity.value_or(0));
    // What it gains or loses in an hour at this pace.
    const double perHour = (fullest - emptiest) / (toSeconds(halfRound) / 3600.0);
    now.currentCapacity = rounded(level * 100.0);
    now.rawCurrentCapacity = rounded(level * max);
    now.isCharging = !drains;
    now.amperage = rounded((drains ? -perHour : perHour) * max);
    now.voltage = rounded(11'400.0 + 1400.0 * level);
    now.minutesToEmpty = drains ? rounded(level / perHour * 60.0) : -1;
    now.minutesToFull = drains ? -1 : rounded((fullest - level) / perHour * 60.0);
    return now;
}

PropertyMap SimulatedBattery::description() const {
    const BatteryFigures now = figures();
    PropertyMap described{{"Name", "InternalBattery-0"}};
    add(described, "Current Capacity", now.currentCapacity);
    add(described, "Max Capacity", now.maxCapacity);
    if (now.isCharging) described.emplace("Is Charging", *now.isCharging);
    add(described, "Time to Full Charge", now.minutesToFull);
    add(described, "Time to Empty", now.minutesToEmpty);
    return described;
}

PropertyMap SimulatedBattery::properties() const {
    BatteryFigures now = figures();
    if (now.amperage && *now.amperage < 0) *now.amperage += lostSign;
    PropertyMap properties;
    add(properties, "AppleRawCurrentCapacity", now.rawCurrentCapacity);
    add(properties, "AppleRawMaxCapacity", now.rawMaxCapacity);
    add(properties, "DesignCapacity", now.designCapacity);
    add(properties, "Voltage", now.voltage);
    add(properties, "Amperage", now.amperage);
    add(properties, "CycleCount", now.cycleCount);
    add(properties, "Temperature", now.temperature);
    return properties;
}

}  // namespace vtx
