// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Published.h"
#include "fan/FanStats.h"
#include "fan/SMCFanBridge.h"

namespace vtx {

class Clock;
struct Ports;

/// Publishes how fast the fans turn, and only reads. Lives on the main executor; made once at start
/// and owned by the coordinator.
class FanMonitor : public ObservableObject {
public:
    /// A machine whose SMC cannot be opened leaves the monitor without readings for good. The ports
    /// must outlive it, and `SharedFans` must have been made.
    explicit FanMonitor(const Ports& ports);

    /// Takes one reading and publishes it. A fan that tells no speed is left out of it.
    void refresh();

    /// Never absent; empty until there was a reading, and on a machine without fans.
    Published<FanStats> latest{*this, FanStats::empty()};

private:
    [[nodiscard]] std::optional<FanReading> readFan(int index);

    const Clock& clock_;
    std::optional<SMCFanBridge> bridge_;
};

}  // namespace vtx
