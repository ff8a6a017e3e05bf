// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/Published.h"
#include "telemetry/ANEReading.h"
#include "telemetry/IOReportEnergyReader.h"

namespace vtx {

struct Ports;

/// The Neural Engine's place among the monitors. No source tells its load, so it publishes nothing:
/// its one reading stays empty for the life of the process, and all who use it show that. Lives on
/// the main executor, owned by the composition root.
class ANEMonitor : public ObservableObject {
public:
    /// The ports must outlive the monitor.
    explicit ANEMonitor(const Ports& ports);

    /// Never absent, always empty.
    Published<ANEReading> latest{*this, ANEReading::empty()};

    static constexpr bool isAvailable = false;

    /// Null where the machine has no energy counters, which changes nothing.
    [[nodiscard]] const IOReportEnergyReader* energyReader() const { return energyReader_.get(); }
    /// Nobody asks yet.
    [[nodiscard]] bool registryStatsAvailable() const { return registryStatsAvailable_; }

private:
    bool registryStatsAvailable_ = true;
    std::unique_ptr<IOReportEnergyReader> energyReader_;
};

}  // namespace vtx
