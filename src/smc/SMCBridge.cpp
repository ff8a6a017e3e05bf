// SPDX-License-Identifier: MIT
#include "smc/SMCBridge.h"

#include "base/Clock.h"
#include "base/Log.h"
#include "base/Shared.h"
#include "platform/Ports.h"
#include "smc/BatteryTemperatureReader.h"
#include "smc/TemperatureOutlierFilter.h"
#include "smc/TemperatureValueDecoder.h"
#include "telemetry/SysctlReader.h"

namespace vtx {
namespace {

constexpr Logger logger{"SMCBridge"};

std::string textOr(Sysctl& sysctl, std::string_view name) {
    return SysctlReader(sysctl).string(name).value_or("unknown");
}

HotSpotCalibration::Machine machineOf(Sysctl& sysctl) {
    return {SMCBridge::detectChipFamily(sysctl), textOr(sysctl, "hw.model"),
            textOr(sysctl, "kern.osversion")};
}

}  // namespace

SMCBridge* SMCBridge::shared() { return Shared<SharedSMCBridge>::get().bridge.get(); }

std::string SMCBridge::detectChipFamily(Sysctl& sysctl) {
    return textOr(sysctl, "machdep.cpu.brand_string");
}

std::unique_ptr<SMCBridge> SMCBridge::open(const Ports& ports) {
    auto connection = SMCClient::openConnection(ports.smc);
    if (!connection) return nullptr;
    SMCClient client(ports.smc, std::move(connection));
    auto keys = discoverSensorKeys(client);
    const auto machine = machineOf(ports.sysctl);
    return std::unique_ptr<SMCBridge>(
        new SMCBridge(ports, std::move(client), std::move(keys), machine));
}

SMCBridge::SMCBridge(const Ports& ports, SMCClient client, SensorKeys keys,
                     const HotSpotCalibration::Machine& machine)
    : clock_(ports.clock),
      registry_(ports.ioRegistry),
      client_(std::move(client)),
      keys_(std::move(keys)),
      calibration_(machine, keys_.cpu, hardcodedHotSpotDenylist(machine.chip), ports.userDefaults,
                   ports.clock) {
    if (keys_.cpu.empty()) {
        logger.standard("SMC bridge opened but no float temperature keys were discovered");
        return;
    }
    logger.info(
        "SMC bridge ready (chip={}, model={}, build={}, cpu={}, gpu={}, preset={}, restored={}, "
        "calibration={})",
        machine.chip, machine.model, machine.osBuild, keys_.cpu.size(), keys_.gpu.size(),
        hardcodedHotSpotDenylist(machine.chip).size(), calibration_.restoredCount(),
        calibration_.isDone() ? "skipped" : "pending");
}

std::optional<TemperatureReading> SMCBridge::readTemperatureReading() {
    const auto readings = readSensors();
    if (!calibration_.isDone()) calibration_.updateCalibration(readings);
    // The poll on which calibration ends still counts the hot spots that it found.
    const bool isFiltered = !calibration_.isDone();
    std::vector<double> counting;
    counting.reserve(readings.size());
    for (const SensorValue& reading : readings)
        if (!isFiltered || !calibration_.denylist().contains(reading.key))
            counting.push_back(reading.temp);

    auto batteryC = readBatteryTemperature();
    if (!batteryC) batteryC = BatteryTemperatureReader::readFromAppleSmartBattery(registry_);
    const auto cpuMaxC = TemperatureOutlierFilter::maxRejectingOutliers(std::move(counting));
    if (!cpuMaxC && !batteryC) return std::nullopt;
    return TemperatureReading{cpuMaxC, batteryC, clock_.now()};
}

std::vector<SensorValue> SMCBridge::readSensors() {
    std::vector<SensorValue> readings;
    readings.reserve(keys_.cpu.size());
    for (const std::string& key : keys_.cpu) {
        if (calibration_.isDone() && calibration_.denylist().contains(key)) continue;
        const auto value = client_.readValue(key);
        if (!value) continue;
        const double celsius = TemperatureValueDecoder::decodeSMCFloat(
                                   value->bytes(), value->info.dataSize, value->info.dataType)
                                   .value_or(0.0);
        if (celsius > 0.0 && celsius < 150.0) readings.push_back({key, celsius});
    }
    return readings;
}

std::optional<double> SMCBridge::readBatteryTemperature() {
    const auto value = client_.readValue("B0AT");
    if (!value) return std::nullopt;
    const auto celsius = TemperatureValueDecoder::decodeSMCFloat(
        value->bytes(), value->info.dataSize, value->info.dataType);
    if (celsius && *celsius > 0.0 && *celsius < 80.0) return celsius;
    return std::nullopt;
}

}  // namespace vtx
