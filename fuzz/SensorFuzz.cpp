// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/linux/IdentityNodes.h"
#include "platform/linux/SensorKeyNames.h"
#include "platform/linux/SensorRole.h"
#include "platform/linux/SensorText.h"
#include "platform/simulated/SimulatedUserDefaults.h"

using namespace vtx;

namespace {

/// What a file of hwmon may say, as a figure and as a name.
void tryText(std::string_view text) {
    for (const auto unit : {TemperatureUnit::thousandths, TemperatureUnit::tenths}) {
        const auto degrees = parseTemperature(text, unit);
        fuzz::expect(!degrees || (*degrees > -128.0 && *degrees < 127.0 && *degrees != 0.0));
    }
    const auto speed = parseFanSpeed(text);
    fuzz::expect(!speed || (*speed >= 0.0 && *speed < 65535.0));
    (void)isRaised(text);
    const auto name = sensorName(text);
    fuzz::expect(name.size() <= 100);
    for (const auto cooling : {ZoneCooling::none, ZoneCooling::byFirmware, ZoneCooling::byClock})
        (void)roleOf({std::string(name), cooling}, text);
    const auto channel = channelNumber(text, "temp", "_input");
    fuzz::expect(!channel || *channel <= 9999);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    tryText(text);
    const auto memory = parseMemoryRecords(text);
    fuzz::expect(memory.type || !memory.transfersPerSecond);
    // Whatever the settings hold, every sensor gets a name, the same one each time.
    SimulatedUserDefaults defaults;
    defaults.setData(SensorKeyNames::settingsKey, toData(text));
    SensorKeyNames names(defaults, [](std::string_view) { return std::uint64_t{7}; });
    const auto one = names.nameOf("TC", text);
    const auto other = names.nameOf("TC", "another");
    fuzz::expect(one && one->size() == 4 && other);
    fuzz::expect((one == other) == (text == "another"));
    names.store();
    SensorKeyNames again(defaults, [](std::string_view) { return std::uint64_t{7}; });
    fuzz::expect(again.nameOf("TC", "another") == other && again.nameOf("TC", text) == one);
    return 0;
}
