// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/CpuFreqText.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// What tells the clock of a cpufreq policy, best first.
enum class ClockSource {
    timeInState,   ///< `stats/time_in_state`
    averageClock,  ///< `cpuinfo_avg_freq`, and `scaling_cur_freq` while that has no answer
    currentClock,  ///< `scaling_cur_freq`
};

/// Absent where the policy tells nothing.
[[nodiscard]] std::optional<ClockSource> clockSourceOf(const LinuxRoot& root,
                                                       const std::string& folder);

/// The clocks at which a policy stood between two readings. One thread at a time.
class PolicyClock {
public:
    PolicyClock(const LinuxRoot& root, const std::string& folder, ClockSource source);

    /// Whether a reading makes sense while the policy's processors are idle: where times are
    /// counted, each interval needs its start. A current clock is not asked for then, since some
    /// kernels wake the processor to answer.
    [[nodiscard]] bool isReadWhileIdle() const { return source_ == ClockSource::timeInState; }
    /// An interval begins of which nothing is known.
    void forget();
    /// The clocks since the last reading with the weight of each; their order and unit mean
    /// nothing. Empty where nothing is known: at first, after a reset of the times, when a file
    /// fails.
    [[nodiscard]] std::vector<ClockTime> read();

private:
    [[nodiscard]] std::vector<ClockTime> readTimes();
    [[nodiscard]] std::vector<ClockTime> readCurrent();
    [[nodiscard]] static std::optional<std::uint64_t> readClock(KeptFile& file);

    ClockSource source_;
    KeptFile times_;
    KeptFile average_;
    KeptFile current_;
    std::vector<ClockTime> lastTimes_;        ///< empty when there are none
    std::optional<std::uint64_t> lastClock_;  ///< `scaling_cur_freq` in kHz, of the last reading
};

}  // namespace vtx
