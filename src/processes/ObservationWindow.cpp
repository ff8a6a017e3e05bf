// SPDX-License-Identifier: MIT
#include "processes/ObservationWindow.h"

#include <algorithm>

namespace vtx {
namespace {

using Observation = ObservationWindow::Observation;

/// A gap this long between two active observations is a break: the machine slept, or nobody looked.
constexpr Duration breakLength = std::chrono::seconds(30);

Duration activeBetween(Instant from, Instant to) {
    const Duration gap = to - from;
    return gap < breakLength ? gap : Duration::zero();
}

auto isActiveFrom(double threshold) {
    return [threshold](const Observation& one) { return one.cpuPercent >= threshold; };
}

}  // namespace

void ObservationWindow::add(const Observation& newest, double windowSeconds) {
    const auto isOld = [&newest, windowSeconds](const Observation& one) {
        return toSeconds(newest.moment - one.moment) > windowSeconds;
    };
    observations_.push_back(newest);
    if (isCounted_ && isActiveFrom(threshold_)(newest)) extendTo(newest.moment);
    while (!observations_.empty() && isOld(observations_.front())) dropFirst();
}

void ObservationWindow::dropFirst() {
    const Observation first = observations_.front();
    observations_.pop_front();
    const auto isActive = isActiveFrom(threshold_);
    if (!isCounted_ || !isActive(first)) return;
    const auto next = std::ranges::find_if(observations_, isActive);
    if (next == observations_.end())
        lastActive_.reset();
    else
        activeFor_ -= activeBetween(first.moment, next->moment);
}

double ObservationWindow::activeSeconds(double threshold) {
    if (!isCounted_ || threshold != threshold_) countAnew(threshold);
    return toSeconds(activeFor_);
}

void ObservationWindow::countAnew(double threshold) {
    threshold_ = threshold;
    isCounted_ = true;
    activeFor_ = {};
    lastActive_.reset();
    for (const Observation& one : observations_)
        if (isActiveFrom(threshold)(one)) extendTo(one.moment);
}

void ObservationWindow::extendTo(Instant active) {
    if (lastActive_) activeFor_ += activeBetween(*lastActive_, active);
    lastActive_ = active;
}

ObservationWindow::Shares ObservationWindow::shares(double threshold) const {
    Shares shares;
    std::size_t active = 0;
    for (const Observation& one : observations_) {
        shares.peak = std::max(shares.peak, one.cpuPercent);
        if (!isActiveFrom(threshold)(one)) continue;
        shares.average += one.cpuPercent;
        ++active;
    }
    shares.average /= static_cast<double>(std::max<std::size_t>(active, 1));
    return shares;
}

std::optional<Instant> ObservationWindow::beginning() const {
    if (observations_.empty()) return std::nullopt;
    return observations_.front().moment;
}

}  // namespace vtx
