// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// Processors that share one clock.
struct CpuFreqPolicy {
    std::string folder;               ///< such as "/sys/devices/system/cpu/cpufreq/policy0"
    std::vector<std::size_t> places;  ///< ascending; at least one, in no other policy
};

/// The machine's cpufreq policies and the clock steps of its performance levels, as they were found
/// at start. A policy whose processors are all offline then tells no steps, and is booked on those
/// of its level once they are online; one whose processors never were online has no part. Constant,
/// any thread.
///
/// A level's steps are those of its policies together, read of one policy for each highest clock:
/// `scaling_available_frequencies` and `scaling_boost_frequencies`. Many drivers list none, and
/// others reach beyond their list. From the highest listed clock, or else from `cpuinfo_min_freq`,
/// steps of 50 MHz lead up to `cpuinfo_max_freq`: no steps of the hardware, but places on which a
/// clock can be booked.
class CpuFreq {
public:
    CpuFreq(const LinuxRoot& root, const LinuxProcessors& processors);

    /// By their first place; empty where the machine has no cpufreq.
    [[nodiscard]] std::span<const CpuFreqPolicy> policies() const { return policies_; }
    /// In kHz, ascending, at most 384; empty where the level has no policy or no steps.
    [[nodiscard]] std::span<const std::uint64_t> stepsKHz(std::size_t level) const {
        return stepsKHz_.at(level);
    }

private:
    std::vector<CpuFreqPolicy> policies_;
    std::array<std::vector<std::uint64_t>, 2> stepsKHz_;
};

}  // namespace vtx
