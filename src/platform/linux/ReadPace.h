// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <optional>

#include "base/Date.h"

namespace vtx {

/// Whether the sensors of one chip answer fast enough to be read by whoever asks, told by how long
/// their reads took. The kernel has no word on it: a register takes a microsecond, a board's
/// controller milliseconds, a drive or a firmware call up to seconds, and some drivers answer fast
/// from what they kept and slowly when they renew it.
///
/// A chip is slow until it has answered, fast from its first short answer on, and slow again for a
/// while after each long one. The while doubles with each long answer that somebody had to wait
/// for, so that a chip that is slow now and then holds up fewer and fewer passes. Shared by the
/// sensors of a chip. Any thread.
class ReadPace {
public:
    /// A shorter read may be made by anybody: a pass has a millisecond for all its sensors.
    static constexpr Duration longRead = std::chrono::microseconds(500);
    static constexpr Duration firstPenalty = std::chrono::seconds(30);
    static constexpr Duration longestPenalty = std::chrono::hours(1);

    enum class Reader { worker, caller };

    [[nodiscard]] bool isFast(Instant now) const;
    void note(Reader reader, Duration took, Instant now);

    /// A chip that did not answer in time once is not waited for again before it has answered.
    void noteUnanswered();
    [[nodiscard]] bool isWorthWaiting() const;

    /// How long callers waited so far for first answers of the chip, all of its sensors together.
    void noteWaited(Duration took);
    [[nodiscard]] Duration waited() const;

private:
    mutable std::mutex mutex_;
    std::optional<Instant> fastFrom_;  ///< absent before the first answer
    Duration penalty_ = firstPenalty;
    bool isUnanswered_ = false;
    Duration waited_{0};
};

}  // namespace vtx
