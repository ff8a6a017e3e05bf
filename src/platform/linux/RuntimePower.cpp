// SPDX-License-Identifier: MIT
#include "platform/linux/RuntimePower.h"

#include <chrono>
#include <utility>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::size_t shortFile = 64;

}  // namespace

RuntimePower::RuntimePower(LinuxRoot root, const std::string& device)
    : root_(std::move(root)),
      folder_(device + "/power"),
      isManaged_(root_.exists(folder_ + "/runtime_status")),
      status_(root_.path(folder_ + "/runtime_status")) {}

RuntimePower::State RuntimePower::state() {
    if (!isManaged_) return State::on;
    const auto text = status_.read(shortFile);
    const auto status = text ? trimmed(*text) : std::string_view();
    // "unsupported" is said of a device that is always on.
    if (status == "active" || status == "unsupported") return State::on;
    if (status == "suspended" || status == "suspending" || status == "resuming")
        return State::asleep;
    return State::unknown;
}

std::optional<Duration> RuntimePower::autosuspendDelay() const {
    if (!isManaged_ || root_.readText(folder_ + "/control") != "auto") return std::nullopt;
    const auto text = root_.read(folder_ + "/autosuspend_delay_ms");
    const auto delay = text ? parseSigned(*text) : std::nullopt;
    // With a delay below 0 it never suspends itself, without one at once. No delay is a day long.
    constexpr std::int64_t longestMs = 86'400'000;
    if (delay && (*delay < 0 || *delay > longestMs)) return std::nullopt;
    return std::chrono::milliseconds(delay.value_or(0));
}

}  // namespace vtx
