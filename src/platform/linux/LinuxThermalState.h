// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/Clock.h"
#include "base/Executor.h"
#include "platform/ThermalState.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/SlowRead.h"

namespace vtx {

/// The thermal state by `ThermalZones`, which are read on the thread for what may block: the state
/// is that of the last read, and asking for it causes the next one. A read that finds another
/// level is told as a change at once. 0 on a machine without zones, where nothing is read at all,
/// and where no zone has told anything for long. Main executor; owned by the platform.
class LinuxThermalState final : public ThermalState {
public:
    /// `worker` reads, and outlives the port as `main` does.
    LinuxThermalState(const LinuxRoot& root, const Clock& clock, Executor& main, Executor& worker,
                      std::shared_ptr<DeviceChanges> changes);
    ~LinuxThermalState() override;

    [[nodiscard]] std::int64_t thermalState() override;
    [[nodiscard]] Subscription onThermalStateDidChange(std::function<void()> handler) override;

private:
    struct Shared;

    const LinuxRoot& root_;
    const std::shared_ptr<DeviceChanges> changes_;
    const std::shared_ptr<Shared> shared_;  ///< with the reads
    SlowRead<int> reads_;
    std::uint64_t generation_ = 0;
    bool hasZones_ = false;
    bool hasRead_ = false;
};

}  // namespace vtx
