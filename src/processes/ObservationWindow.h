// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <optional>

#include "base/Date.h"

namespace vtx {

/// What was observed of one process within the last while, in the order in which it came. How long
/// the process was active is kept up to date with what comes and goes, so that asking again costs
/// nothing; only another threshold has all of it counted anew. Its time is the one that never
/// jumps, so that a clock that is set neither drops nor keeps anything. Owned by
/// `BackgroundHogDetector`; one thread at a time.
class ObservationWindow {
public:
    struct Observation {
        Instant moment;
        double cpuPercent = 0.0;  ///< of one core, as a fraction
        std::uint64_t residentBytes = 0;
    };
    /// Of one core, as fractions.
    struct Shares {
        double average = 0.0;  ///< over the active observations; 0 where there are none
        double peak = 0.0;     ///< over all of them
    };

    /// Takes in what is observed now, and drops what is more than `windowSeconds` older.
    void add(const Observation& newest, double windowSeconds);

    /// For how long it was active: the gaps between active observations that follow each other
    /// closely, one at or above the threshold being active.
    [[nodiscard]] double activeSeconds(double threshold);
    [[nodiscard]] Shares shares(double threshold) const;
    /// When the first one that is left was made; absent where none is.
    [[nodiscard]] std::optional<Instant> beginning() const;

private:
    void countAnew(double threshold);
    void extendTo(Instant active);
    void dropFirst();

    std::deque<Observation> observations_;
    bool isCounted_ = false;  ///< the figures below are those of the observations
    double threshold_ = 0.0;  ///< with which they were counted
    Duration activeFor_{};
    std::optional<Instant> lastActive_;
};

}  // namespace vtx
