// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Signal.h"
#include "platform/simulated/SimulatedBattery.h"
#include "platform/simulated/SimulatedChannels.h"
#include "platform/simulated/SimulatedDisks.h"
#include "platform/simulated/SimulatedGraphics.h"
#include "platform/simulated/SimulatedHIDSensors.h"
#include "platform/simulated/SimulatedMemory.h"
#include "platform/simulated/SimulatedNetwork.h"
#include "platform/simulated/SimulatedProcesses.h"
#include "platform/simulated/SimulatedProcessors.h"
#include "platform/simulated/SimulatedRegistry.h"
#include "platform/simulated/SimulatedSMC.h"
#include "platform/simulated/SimulatedThermals.h"

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
    /// Of use where the shape has one; set by `setBattery`.
    SimulatedBattery battery;
    SimulatedThermals thermals;
    /// Its sensors and fans, twice: as keys, and as human interface devices.
    SimulatedSMC smc;
    SimulatedHIDSensors hidSensors;
    /// Its devices and what its chip counts.
    SimulatedRegistry registry;
    SimulatedChannels channels;
    /// One that is built in, at first.
    SimulatedDisks disks;
    SimulatedNetwork network;
    SimulatedProcesses processes;

    /// The system's name and version.
    std::string operatingSystemVersion = "Version 15.2 (Build 24C101)";
    /// BCP 47 tags, most preferred first.
    std::vector<std::string> preferredLanguages{"en-US"};
    /// The process's environment, empty at first, so that nothing of the real one shows.
    std::map<std::string, std::string, std::less<>> environment;
    std::vector<std::string> loadedBundlePaths;
    /// The process of the application in front; none where nobody is logged in.
    std::optional<std::int32_t> frontmostApplication;
    /// What the file viewer shows selected; empty before the first.
    std::string selectedFile;
    bool hasSystemMonitor = true;

    /// From now on all parts live as if somebody worked at the machine.
    void live(std::uint64_t seed);

    /// Adds an accelerator that tells the load of `graphics`, after those that are there.
    SimulatedRegistry::Node addAccelerator();
    /// Accelerators in their order. One can be removed from the registry or made to tell nothing.
    [[nodiscard]] std::vector<SimulatedRegistry::Node> accelerators() const;

    /// What the battery says of itself from now on, in both places.
    void setBattery(const BatteryFigures& figures);

    void setPower(SimulatedPower power) { power_ = power; }
    /// What was set, or, while the battery lives, what goes with it.
    [[nodiscard]] SimulatedPower power() const;

    /// Tells of it, whether or not that changes something, as the system does. Any number.
    void setThermalState(std::int64_t state);
    /// What was set, or, while the machine lives, what its load brings with it.
    [[nodiscard]] std::int64_t thermalState() const;

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
    Signal<> thermalStateDidChange;

private:
    void addBattery();

    SimulatedPower power_ = SimulatedPower::mains;
    std::int64_t thermalState_ = 0;
    bool isThermalStateLiving_ = false;
    bool isLowPowerMode_ = false;
    bool isAsleep_ = false;
};

}  // namespace vtx
