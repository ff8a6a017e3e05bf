// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"

namespace vtx {

/// A moment by both times of a clock: the date is what is told of it, and the instant measures what
/// passed between two, which a clock that is set within it would make much more or next to nothing.
struct Moment {
    explicit Moment(const Clock& clock) : date(clock.now()), instant(clock.continuous()) {}

    Date date;
    Instant instant;
};

/// From one sample to the next. Not above 0 where the clock was set back to the first or before it:
/// over such a time nothing is told.
[[nodiscard]] inline double secondsBetween(const Moment& from, const Moment& to) {
    const auto byDate = to.date - from.date;
    return byDate > byDate.zero() ? toSeconds(to.instant - from.instant) : toSeconds(byDate);
}

}  // namespace vtx
