// SPDX-License-Identifier: MIT
// How the time of an eventful machine passes: awake, asleep, and by a clock that is set.
#include "support/EventfulMachine.h"

namespace vtx {

void EventfulMachine::machineSleeps() {
    constexpr std::uint64_t longestMinutes = 600;
    bench_.mac.sleep();
    bench_.settle();
    if (*coordinator().pollingMode != PollingMode::suspended) complain("it polls while it sleeps");
    const std::size_t before = watch_->readings();
    // Awake for a moment, as machines are in between, and nothing is to be done.
    const bool isHot = oneIn(2);
    if (!isHot) bench_.advance(seconds(20));
    if (watch_->readings() != before) complain("it reads while it sleeps");
    bench_.clock.sleepMachine(std::chrono::minutes(1 + upTo(longestMinutes)));
    bench_.mac.wake();
    bench_.settle();
}

void EventfulMachine::letTimePass() {
    const std::uint64_t kind = upTo(9);
    const std::uint64_t longest = kind < 6 ? 60 : kind < 9 ? 600 : 2400;
    bench_.advance(seconds(0.001 + static_cast<double>(longest) * part()));
}

}  // namespace vtx
