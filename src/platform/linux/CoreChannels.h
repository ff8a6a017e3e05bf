// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/linux/CpuFreq.h"
#include "platform/linux/CpuStatReader.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/PolicyClock.h"

namespace vtx {

/// One processor's performance states: the first is idle, the others are its level's clock steps.
struct CoreChannel {
    std::string name;  ///< "PCPU<place>" or "ECPU<place>"
    std::size_t place = 0;
    std::span<const std::uint64_t> stepsKHz;  ///< of its level; at least one
    std::size_t firstValue = 0;               ///< where its states begin among the values of all

    [[nodiscard]] std::size_t stateCount() const { return stepsKHz.size() + 1; }
};

/// The processors of one policy that tells its clock.
struct PolicyChannels {
    std::string folder;
    ClockSource source = ClockSource::currentClock;
    std::vector<CoreChannel> cores;
};

/// All of the machine's channels, as they were found at start. Constant.
struct CoreChannels {
    CoreChannels(const LinuxRoot& root, const LinuxProcessors& processors, const CpuFreq& cpuFreq);

    /// Empty where the machine has no cpufreq, or none that tells a clock.
    std::vector<PolicyChannels> policies;
    std::size_t valueCount = 0;
    std::vector<std::string> stateNames;  ///< by index, for all channels
};

/// Counts how long each processor was in each state. Between two readings a processor ran for its
/// busy ticks, at the clocks at which its policy stood, each in its share, booked on the nearest
/// step. Where the clock is not known nothing but idle time is booked. Owned by a subscription.
class CoreResidencies {
public:
    CoreResidencies(const LinuxRoot& root, const LinuxProcessors& processors,
                    std::shared_ptr<const CoreChannels> channels);

    /// False, and nothing is counted, when the processors' counters cannot be read.
    [[nodiscard]] bool read();
    /// In nanoseconds, of all channels.
    [[nodiscard]] const std::vector<std::int64_t>& values() const { return values_; }

private:
    struct Ticks {
        std::uint32_t busy = 0;
        std::uint32_t idle = 0;
    };
    [[nodiscard]] Ticks ticksOf(std::size_t place) const;
    [[nodiscard]] Ticks gainedBy(std::size_t place) const;
    void readPolicy(const PolicyChannels& policy, PolicyClock& clock);
    void book(const CoreChannel& core, Ticks gained, std::span<const ClockTime> clocks);

    const std::shared_ptr<const CoreChannels> channels_;
    CpuStatReader stat_;
    std::vector<PolicyClock> clocks_;  ///< by policy
    std::vector<Ticks> last_;          ///< by place
    bool hasRead_ = false;
    std::vector<std::int64_t> values_;
};

}  // namespace vtx
