// SPDX-License-Identifier: MIT
#include "smc/BatteryTemperatureReader.h"

#include "platform/IORegistry.h"

namespace vtx {
namespace {

constexpr double kelvinFrom = 200.0;  // above, it can only be kelvin
constexpr double zeroCelsiusInKelvin = 273.15;

}  // namespace

std::optional<double> BatteryTemperatureReader::readFromAppleSmartBattery(IORegistry& registry) {
    const auto match = registry.serviceMatching("AppleSmartBattery");
    if (!match) return std::nullopt;
    const auto battery = registry.getMatchingService(*match);
    if (!battery) return std::nullopt;
    const auto [result, properties] = registry.entryProperties(battery);
    if (result != kernSuccess) return std::nullopt;
    const auto hundredths = properties["Temperature"].real();
    if (!hundredths) return std::nullopt;
    double celsius = *hundredths / 100.0;
    if (celsius > kelvinFrom) celsius -= zeroCelsiusInKelvin;
    if (celsius > -10.0 && celsius < 80.0) return celsius;
    return std::nullopt;
}

}  // namespace vtx
