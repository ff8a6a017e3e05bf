// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>

#include "base/Clock.h"
#include "base/Executor.h"
#include "platform/linux/BatteryReader.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/SlowRead.h"

namespace vtx {

/// The batteries for both ports that tell of them, read on the thread for what may block: asking
/// gives what the last read found and causes the next one. After a pause of some seconds, when what
/// was found may be true no more, asking waits for a moment, once. Any thread; owned by the
/// platform.
class BatteryGauge {
public:
    /// `worker` reads, and outlives the gauge.
    BatteryGauge(const LinuxRoot& root, const Clock& clock, Executor& worker,
                 std::shared_ptr<DeviceChanges> changes);

    /// Whether the machine has a battery of its own. Looks only when devices changed.
    [[nodiscard]] bool hasBattery();
    /// Absent where no battery answers. Both ports' questions of one moment are one.
    [[nodiscard]] std::optional<BatteryState> state();

private:
    const LinuxRoot& root_;
    const Clock& clock_;
    const std::shared_ptr<DeviceChanges> changes_;
    SlowRead<BatteryState> reads_;

    std::mutex mutex_;  ///< of all below
    std::uint64_t generation_ = 0;
    bool hasBattery_ = false;
    bool mayWait_ = true;
    std::optional<BatteryState> last_;
    std::optional<Instant> lastTime_;
};

}  // namespace vtx
