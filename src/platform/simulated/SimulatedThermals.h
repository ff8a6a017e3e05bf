// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

#include "base/Clock.h"

namespace vtx {

class SimulatedProcessors;

/// A fan that turns faster the hotter the machine is. Speeds in revolutions a minute.
struct SimulatedFan {
    double minRPM = 0.0;
    double maxRPM = 0.0;
    double targetRPM = 0.0;
    double currentRPM = 0.0;  ///< follows the target within seconds
};

/// How warm the parts of the simulated machine are, in degrees Celsius, and how fast its fans turn.
/// Warmth follows the load of the cores with the inertia of metal, the fans follow the warmth with
/// that of their wheels. Nothing runs in between: whoever looks makes it catch up with the clock. A
/// new machine has the warmth of one that idles. Any thread.
class SimulatedThermals {
public:
    /// The clock and the processors must outlive it.
    SimulatedThermals(const Clock& clock, SimulatedProcessors& processors);

    /// At a core.
    [[nodiscard]] double coreC(std::size_t core);
    /// Of the whole chip.
    [[nodiscard]] double packageC();
    [[nodiscard]] double batteryC();

    /// From now on the room is as warm as this; 24 at first.
    void setAmbientC(double celsius);

    [[nodiscard]] std::size_t fanCount() const { return fans_.size(); }
    /// A fan that the machine does not have is a programming fault.
    [[nodiscard]] SimulatedFan fan(std::size_t index);

private:
    // With the lock held.
    void catchUp();
    void step(double seconds, const std::vector<double>& loads);
    void spinFans(double seconds);

    const Clock& clock_;
    SimulatedProcessors& processors_;
    std::mutex mutex_;
    double ambientC_ = 24.0;
    double packageRiseC_;             // over the room
    std::vector<double> coreRisesC_;  // over the package
    double batteryRiseC_;             // over the room
    std::vector<SimulatedFan> fans_;
    std::vector<std::int64_t> busySoFar_;  // nanoseconds of each core, when last looked at
    Instant warmedUntil_;
};

}  // namespace vtx
