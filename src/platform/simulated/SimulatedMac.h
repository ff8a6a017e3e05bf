// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Signal.h"
#include "platform/simulated/SimulatedChannels.h"
#include "platform/simulated/SimulatedGraphics.h"
#include "platform/simulated/SimulatedMemory.h"
#include "platform/simulated/SimulatedProcesses.h"
#include "platform/simulated/SimulatedProcessors.h"
#include "platform/simulated/SimulatedRegistry.h"

namespace vtx {

enum class SimulatedPower { mains, battery, uninterruptible, unknown };

/// The model behind all ports of the simulated platform: one machine in memory, whose parts agree
/// with each other. Whoever plays the machine's user, a test or the program, calls the setters; the
/// ports read. Main executor, except for the parts that any thread may use.
class SimulatedMac {
public:
    SimulatedMac(Clock& clock, MacShape shape);
    SimulatedMac(const SimulatedMac&) = delete;
    SimulatedMac& operator=(const SimulatedMac&) = delete;

    SimulatedProcessors processors;
    SimulatedGraphics graphics;
    SimulatedMemory memory;
    SimulatedProcesses processes;
    /// Its devices and what its chip counts.
    SimulatedRegistry registry;
    SimulatedChannels channels;

    /// The system's name and version.
    std::string operatingSystemVersion = "Version 15.2 (Build 24C101)";
    /// BCP 47 tags, most preferred first.
    std::vector<std::string> preferredLanguages{"en-US"};
    /// The process's environment, empty at first, so that nothing of the real one shows.
    std::map<std::string, std::string, std::less<>> environment;
    std::vector<std::string> loadedBundlePaths;

    /// From now on all parts live as if somebody worked at the machine.
    void live(std::uint64_t seed);

    /// Adds an accelerator that tells the load of `graphics`, after those that are there.
    SimulatedRegistry::Node addAccelerator();
    /// Accelerators in their order. One can be removed from the registry or made to tell nothing.
    [[nodiscard]] std::vector<SimulatedRegistry::Node> accelerators() const;

    void setPower(SimulatedPower power) { power_ = power; }
    [[nodiscard]] SimulatedPower power() const { return power_; }

    /// Tells of it where that changes something.
    void setLowPowerMode(bool enabled);
    [[nodiscard]] bool isLowPowerMode() const { return isLowPowerMode_; }

    /// Tells that the machine will sleep, then stops its cores. Nothing if it sleeps.
    void sleep();
    /// Starts the cores again, then tells that the machine woke. Nothing if it is awake.
    void wake();
    [[nodiscard]] bool isAsleep() const { return isAsleep_; }

    Signal<> willSleep;
    Signal<> didWake;
    Signal<> powerStateDidChange;

private:
    SimulatedPower power_ = SimulatedPower::mains;
    bool isLowPowerMode_ = false;
    bool isAsleep_ = false;
};

}  // namespace vtx
