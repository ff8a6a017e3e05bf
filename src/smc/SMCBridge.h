// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "smc/HotSpotCalibration.h"
#include "smc/SMCClient.h"
#include "smc/TemperatureReading.h"

namespace vtx {

class IORegistry;
class Sysctl;
struct Ports;

/// Turns the SMC's keys into one number a poll: the hottest credible temperature of the processor,
/// with the battery's beside it. It has no table of sensors: it asks the SMC for all of its keys
/// once and takes those that are named as sensors of the processor, without the hot spots. Main
/// executor; one for the process, which lives until that ends.
class SMCBridge {
public:
    /// Keys in the order of the SMC.
    struct SensorKeys {
        std::vector<std::string> cpu;
        std::vector<std::string> gpu;  ///< always empty: no rule of discovery fills it
    };

    /// The process's one, made on first use; null for good where the SMC cannot be opened.
    static SMCBridge* shared();

    /// Null where the SMC cannot be opened. The ports must outlive the bridge.
    static std::unique_ptr<SMCBridge> open(const Ports& ports);

    /// Walks all keys of the SMC and reads each float once; what it told of them stays known.
    [[nodiscard]] static SensorKeys discoverSensorKeys(SMCClient& client);
    /// Whether a float of this name is a sensor of the processor.
    [[nodiscard]] static bool isCPUSensor(std::string_view key);
    /// The chip as the kernel names it, or "unknown".
    [[nodiscard]] static std::string detectChipFamily(Sysctl& sysctl);
    /// Keys that are known to be hot spots on a chip.
    [[nodiscard]] static SensorKeySet hardcodedHotSpotDenylist(std::string_view chip);

    /// One poll: the value of each sensor in use, and the battery's. Absent if neither came out.
    [[nodiscard]] std::optional<TemperatureReading> readTemperatureReading();
    /// The battery's temperature by "B0AT"; absent for what no battery can have.
    [[nodiscard]] std::optional<double> readBatteryTemperature();

    [[nodiscard]] const std::vector<std::string>& cpuKeys() const { return keys_.cpu; }
    [[nodiscard]] const HotSpotCalibration& calibration() const { return calibration_; }

private:
    SMCBridge(const Ports& ports, SMCClient client, SensorKeys keys,
              const HotSpotCalibration::Machine& machine);

    [[nodiscard]] std::vector<SensorValue> readSensors();

    const Clock& clock_;
    IORegistry& registry_;
    SMCClient client_;
    const SensorKeys keys_;
    HotSpotCalibration calibration_;
};

/// What `SMCBridge::shared` keeps, a failure to open included.
struct SharedSMCBridge {
    std::unique_ptr<SMCBridge> bridge;
};

}  // namespace vtx
