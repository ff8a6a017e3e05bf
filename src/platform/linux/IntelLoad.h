// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "platform/linux/GraphicsLoad.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// By the time that a device of the drivers i915 and xe spent in its idle state: what is left of a
/// span it was busy. The time is counted in milliseconds for each of the device's graphics parts;
/// the busiest one tells. A part leaves its idle state a little before and after it works, so that
/// this is an upper bound of what its engines did, close to it where there is much to do. The
/// counter is a register of the device: reading it takes microseconds.
class IntelLoad final : public GraphicsLoad {
public:
    /// Lets the calling thread wait.
    using Pause = std::function<void(Duration)>;

    /// `files` are paths as they are opened; the clock outlives it.
    IntelLoad(const Clock& clock, Pause pause, const std::vector<std::string>& files);

    /// Over a tenth of a second, which the calling thread waits.
    [[nodiscard]] Percent first() override;
    [[nodiscard]] Percent next() override;
    void letGo() override { lastTime_.reset(); }

    /// The counters of a device as paths of the machine: `gt/gt*/rc6_residency_ms` of the card, or
    /// `power/rc6_residency_ms` on older kernels, or `tile*/gt*/gtidle/idle_residency_ms` of the
    /// device. Without those of parts that are kept from idling, which count nothing. Empty where
    /// the driver has none.
    [[nodiscard]] static std::vector<std::string> countersOf(const LinuxRoot& root,
                                                             const std::string& card,
                                                             const std::string& device);

private:
    struct Counter {
        KeptFile file;
        std::optional<std::uint64_t> idleMs;  ///< as it was at `lastTime_`
    };

    const Clock& clock_;
    const Pause pause_;
    std::vector<Counter> counters_;
    std::optional<Instant> lastTime_;
    Percent last_;
};

/// How busy a part was that counted its idle milliseconds up from `before` to `now`; absent where
/// the counter started over. One of 32 bits may wrap.
[[nodiscard]] GraphicsLoad::Percent busyBetween(std::uint64_t before, std::uint64_t now,
                                                Duration span);

}  // namespace vtx
