// SPDX-License-Identifier: MIT
#include "platform/linux/AmdGraphics.h"

#include <chrono>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::size_t shortFile = 64;
constexpr int zerosBeforeRest = 2;
constexpr auto beyondDelay = std::chrono::seconds(1);
/// A device that waits longer is asked all the same: two zeros would have to stand for too long.
constexpr std::int64_t longestDelayMs = 10'000;

}  // namespace

AmdGraphics::AmdGraphics(const LinuxRoot& root, std::string_view address, const Clock& clock)
    : RegistryNode("IOService", "amdgpu"),
      root_(root),
      clock_(clock),
      address_(address),
      folder_(folderOf(address)),
      hasRuntimePower_(root.exists(folder_ + "/power/runtime_status")),
      busy_(root.path(folder_ + "/gpu_busy_percent")),
      status_(root.path(folder_ + "/power/runtime_status")) {}

std::string AmdGraphics::folderOf(std::string_view address) {
    return std::string("/sys/bus/pci/devices/").append(address);
}

bool AmdGraphics::isThere() { return root_.exists(folder_ + "/gpu_busy_percent"); }

std::optional<PropertyMap> AmdGraphics::properties() {
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

std::optional<std::uint64_t> AmdGraphics::busyPercent() {
    const Power now = power();
    if (now == Power::unknown) return std::nullopt;
    if (now == Power::asleep) {
        zeros_ = 0;
        aloneUntil_.reset();
        return 0;
    }
    if (aloneUntil_ && clock_.continuous() < *aloneUntil_) return 0;
    const auto busy = readBusy();
    aloneUntil_.reset();
    zeros_ = busy == std::uint64_t{0} ? zeros_ + 1 : 0;
    if (zeros_ >= zerosBeforeRest) leaveAlone();
    return busy;
}

AmdGraphics::Power AmdGraphics::power() {
    if (!hasRuntimePower_) return Power::on;
    const auto text = status_.read(shortFile);
    const auto status = text ? trimmed(*text) : std::string_view();
    // "unsupported" is said of a device that is always on.
    if (status == "active" || status == "unsupported") return Power::on;
    if (status == "suspended" || status == "suspending" || status == "resuming")
        return Power::asleep;
    return Power::unknown;
}

std::optional<std::uint64_t> AmdGraphics::readBusy() {
    const auto text = busy_.read(shortFile);
    const auto percent = text && text->size() < shortFile ? parseUnsigned(*text) : std::nullopt;
    return percent && *percent <= 100 ? percent : std::nullopt;
}

void AmdGraphics::leaveAlone() {
    if (const auto delay = autosuspendDelay())
        aloneUntil_ = clock_.continuous() + *delay + beyondDelay;
    else
        zeros_ = 0;
}

std::optional<Duration> AmdGraphics::autosuspendDelay() {
    if (!hasRuntimePower_ || root_.readText(folder_ + "/power/control") != "auto")
        return std::nullopt;
    const auto text = root_.read(folder_ + "/power/autosuspend_delay_ms");
    const auto delay = text ? parseSigned(*text) : std::nullopt;
    // Without a delay of its own it suspends at once; with one below 0 it never does.
    if (delay && (*delay < 0 || *delay > longestDelayMs)) return std::nullopt;
    return std::chrono::milliseconds(delay.value_or(0));
}

}  // namespace vtx
