// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "telemetry/ThermalStats.h"

namespace vtx {

class Clock;
struct Ports;
class ThermalState;

/// Mirrors the system's thermal level: with each refresh, and the moment the system tells that it
/// changed. Lives on the main executor; made once at start and owned by the composition root for
/// the life of the process.
class ThermalMonitor : public ObservableObject {
    ThermalState& state_;
    const Clock& clock_;

public:
    /// Reads the level and follows it. The ports must outlive the monitor.
    explicit ThermalMonitor(const Ports& ports);

    /// Reads the level and publishes it, also when it is the same, so that its time moves.
    void refresh();

    /// Never absent.
    Published<ThermalStats> latest;

private:
    [[nodiscard]] ThermalStats read() const;
    void thermalStateDidChange();

    Subscription changes_;
};

}  // namespace vtx
