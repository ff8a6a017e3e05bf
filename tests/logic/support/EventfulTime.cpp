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
    const std::chrono::minutes span(1 + upTo(longestMinutes));
    bench_.clock.sleepMachine(span);
    // The clock that runs meanwhile is a coarser one, which knows whole seconds.
    constexpr double driftInTenThousand = 1e-4;
    const double drift = 1.0 + driftInTenThousand * toSeconds(span);
    moveWallClock(seconds((2.0 * part() - 1.0) * drift));
    bench_.mac.wake();
    bench_.settle();
}

void EventfulMachine::clockIsSet() {
    auto& clock = bench_.clock;
    // While a load lasts that is soon to be told, or was.
    if (oneIn(2)) {
        bench_.mac.processors.setLoadOfAll({.user = 1.0});
        change([](auto& p) {
            p.alertCPUEnabled = true;
            p.alertCPUThreshold = 0.5;
        });
        bench_.advance(seconds(20.0 * part()));
    }
    constexpr double mostSeconds = 3.0, mostHours = 48.0;
    const double sense = oneIn(2) ? 1.0 : -1.0;
    switch (upTo(5)) {
        case 0:
            return clock.setWallClock(Date{});  // its battery is empty
        case 1:
            return clock.setWallClock(ManualClock::start +
                                      std::chrono::floor<Date::duration>(lived()));
        case 2:
        case 3:
            return moveWallClock(seconds(sense * mostHours * 3600.0 * part()));
        default:
            return moveWallClock(seconds(sense * mostSeconds * part()));
    }
}

void EventfulMachine::moveWallClock(Duration by) {
    auto& clock = bench_.clock;
    clock.setWallClock(clock.now() + std::chrono::floor<Date::duration>(by));
}

void EventfulMachine::letTimePass() {
    const std::uint64_t kind = upTo(9);
    const std::uint64_t longest = kind < 6 ? 60 : kind < 9 ? 600 : 2400;
    bench_.advance(seconds(0.001 + static_cast<double>(longest) * part()));
}

}  // namespace vtx
