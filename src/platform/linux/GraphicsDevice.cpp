// SPDX-License-Identifier: MIT
#include "platform/linux/GraphicsDevice.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vtx {
namespace {

constexpr int zerosBeforeRest = 2;
constexpr auto beyondDelay = std::chrono::seconds(1);
/// A device that waits longer is asked all the same.
constexpr auto longestDelay = std::chrono::seconds(10);
/// What was known before a longer gap, such as the machine's sleep, says nothing any more.
constexpr auto longestGap = std::chrono::seconds(12);

}  // namespace

GraphicsDevice::GraphicsDevice(const LinuxRoot& root, const Clock& clock, const std::string& driver,
                               std::string_view address, std::unique_ptr<GraphicsLoad> load)
    : RegistryNode("IOService", driver),
      root_(root),
      clock_(clock),
      address_(address),
      folder_(folderOf(address)),
      power_(root, folder_),
      load_(std::move(load)) {}

std::string GraphicsDevice::folderOf(std::string_view address) {
    return std::string("/sys/bus/pci/devices/").append(address);
}

bool GraphicsDevice::isThere() { return root_.linkName(folder_ + "/driver") == name(); }

std::optional<PropertyMap> GraphicsDevice::properties() {
    PropertyMap properties{{"PCI Address", address_}};
    const std::lock_guard lock(mutex_);
    if (const auto percent = busyPercent()) {
        properties.emplace(
            "PerformanceStatistics",
            PropertyMap{{"Device Utilization %", static_cast<std::int64_t>(*percent)}});
    } else if (!isThere()) {
        return std::nullopt;
    }
    return properties;
}

GraphicsLoad::Percent GraphicsDevice::busyPercent() {
    const auto power = power_.state();
    if (power == RuntimePower::State::unknown) return std::nullopt;
    const Instant now = clock_.continuous();
    const auto before = std::exchange(lastCall_, now);
    if (power == RuntimePower::State::asleep) {
        letGo();
        zeros_ = 0;
        aloneUntil_.reset();
        return 0;
    }
    if (aloneUntil_ && now < *aloneUntil_) return 0;
    aloneUntil_.reset();
    if (!before || now - *before > longestGap) {
        isLetGo_ = false;
        zeros_ = 0;
        return load_->first();
    }
    return ask(now);
}

GraphicsLoad::Percent GraphicsDevice::ask(Instant now) {
    const auto busy = load_->next();
    if (std::exchange(isLetGo_, false)) return 0;
    zeros_ = busy == std::uint64_t{0} ? zeros_ + 1 : 0;
    if (zeros_ >= zerosBeforeRest) rest(now);
    return busy;
}

void GraphicsDevice::rest(Instant now) {
    const auto delay = power_.autosuspendDelay();
    if (!delay || *delay > longestDelay || drivesDisplay()) {
        zeros_ = 0;
        return;
    }
    aloneUntil_ = now + std::max(*delay, load_->leastRest()) + beyondDelay;
    letGo();
}

void GraphicsDevice::letGo() {
    if (!std::exchange(isLetGo_, true)) load_->letGo();
}

bool GraphicsDevice::drivesDisplay() const {
    for (const auto& card : root_.list(folder_ + "/drm")) {
        if (!card.starts_with("card")) continue;
        const auto connectors = fmt::format("{}/drm/{}", folder_, card);
        for (const auto& name : root_.list(connectors)) {
            if (!name.starts_with(card + "-")) continue;
            const auto connector = fmt::format("{}/{}", connectors, name);
            if (root_.readText(connector + "/enabled") == "enabled" &&
                root_.readText(connector + "/dpms") == "On")
                return true;
        }
    }
    return false;
}

}  // namespace vtx
