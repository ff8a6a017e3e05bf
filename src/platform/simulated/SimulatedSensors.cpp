// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedSensors.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/shapes/SMCValue.h"
#include "platform/simulated/MacShape.h"

namespace vtx::sensors {
namespace {

constexpr std::string_view digits =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
/// By how much the hot spots stand above their neighbours, in turn.
constexpr double hotSpotRisesC[] = {16.0, 26.0};

/// Where a sensor of the processor sits.
struct Place {
    std::string key;
    std::size_t core = 0;
    double offsetC = 0.0;  ///< to its core
};

std::string numbered(std::string_view prefix, std::size_t number) {
    return fmt::format("{}{}{}", prefix, digits[number / digits.size() % digits.size()],
                       digits[number % digits.size()]);
}

void raiseHotSpots(std::vector<Place>& places, const std::vector<std::string>& hotSpots) {
    for (std::size_t i = 0; i < hotSpots.size(); ++i) {
        const auto spot = std::ranges::find(places, hotSpots[i], &Place::key);
        if (spot != places.end()) spot->offsetC += hotSpotRisesC[i % std::size(hotSpotRisesC)];
    }
}

/// Two sensors at each performance core, one at each efficiency core, a third of the cores with one
/// more: small offsets, as no two sit alike.
std::vector<Place> placesOf(const MacShape& shape) {
    std::vector<Place> places;
    std::size_t performance = 0;
    std::size_t efficiency = 0;
    for (std::size_t core = 0; core < shape.cores.size(); ++core) {
        const double offsetC = static_cast<double>(core * 7 % 5) * 0.4;
        if (shape.cores[core] == CoreKind::efficiency) {
            places.push_back({numbered("Te", 5 + 4 * efficiency++), core, offsetC});
        } else {
            places.push_back({numbered("Tp", 1 + 8 * performance), core, offsetC});
            places.push_back({numbered("Tp", 5 + 8 * performance++), core, offsetC + 0.7});
        }
        if (core % 3 == 0) places.push_back({numbered("Tf", 4 + core), core, offsetC - 0.5});
    }
    raiseHotSpots(places, shape.hotSpots);
    return places;
}

Data floatOf(double value) { return encodeSMCFloat(static_cast<float>(value)); }

void addFans(SimulatedSMC& smc, SimulatedThermals& thermals) {
    const auto count = static_cast<std::uint8_t>(thermals.fanCount());
    smc.add("FNum", {.type = "ui8 ", .value = encodeSMCUnsigned8(count)});
    using Speed = double SimulatedFan::*;
    constexpr std::pair<const char*, Speed> keys[] = {{"Ac", &SimulatedFan::currentRPM},
                                                      {"Tg", &SimulatedFan::targetRPM},
                                                      {"Mn", &SimulatedFan::minRPM},
                                                      {"Mx", &SimulatedFan::maxRPM}};
    for (std::size_t fan = 0; fan < thermals.fanCount(); ++fan)
        for (const auto& [suffix, speed] : keys)
            smc.addFloat(fmt::format("F{}{}", fan, suffix), [&thermals, fan, speed = speed] {
                return floatOf(thermals.fan(fan).*speed);
            });
}

/// Named as a core's sensor, but no float of four bytes.
void addLookalikes(SimulatedSMC& smc) {
    smc.add("TC0P", {.type = "sp78", .value = encodeSMCSigned256ths(99.0)});
    smc.add("Tp2x", {.type = "ui16", .value = encodeSMCUnsigned16(9900)});
    smc.add("Tpx2", {.type = "flt ", .value = encodeSMCUnsigned16(9900)});
    smc.add("Tf2x", {.type = "flt ", .value = Data(8, std::byte{0x42})});
}

/// Keys of no concern, in every type and size that there is.
void addOthers(SimulatedSMC& smc, std::size_t total) {
    struct Kind {
        const char* type;
        std::size_t size;
    };
    constexpr Kind kinds[] = {{"flt ", 4}, {"ui8 ", 1}, {"ui16", 2},  {"ui32", 4},  {"flt ", 4},
                              {"ui64", 8}, {"si8 ", 1}, {"si16", 2},  {"sp78", 2},  {"fpe2", 2},
                              {"fp2e", 2}, {"flag", 1}, {"ch8*", 16}, {"hex_", 32}, {"{jst", 40},
                              {"ioft", 8}, {"    ", 0}};
    constexpr std::string_view letters = "ABDGHILMPRSVWe";
    for (std::size_t number = 0; smc.keyCount() < total; ++number) {
        const Kind& kind = kinds[number % std::size(kinds)];
        const auto name = fmt::format("{}{}", letters[number % letters.size()],
                                      numbered("z", number / letters.size()));
        Data value(kind.size);
        for (std::size_t i = 0; i < value.size(); ++i)
            value[i] = static_cast<std::byte>((number * 31 + i * 7) & 0xffU);
        smc.add(name, {.type = kind.type,
                       .value = std::move(value),
                       .attributes = static_cast<std::uint8_t>(number & 0xffU)});
    }
}

}  // namespace

void install(SimulatedSMC& smc, SimulatedThermals& thermals, const MacShape& shape) {
    if (shape.smcKeyCount == 0) {
        smc.services.clear();
        return;
    }
    smc.addFloat(
        "#KEY", [&smc] { return encodeSMCUnsigned32(static_cast<std::uint32_t>(smc.keyCount())); });
    smc.change("#KEY", [](SimulatedSMCKey& key) { key.type = "ui32"; });
    for (const Place& place : placesOf(shape))
        smc.addFloat(place.key, [&thermals, core = place.core, offsetC = place.offsetC] {
            return floatOf(thermals.coreC(core) + offsetC);
        });
    smc.addFloat("TCMz", [&thermals] { return floatOf(thermals.packageC() + 4.0); });
    smc.addFloat("B0AT", [&thermals] { return floatOf(thermals.batteryC()); });
    smc.addFloat("Tg0f", [&thermals] { return floatOf(thermals.packageC() - 3.0); });
    addFans(smc, thermals);
    addLookalikes(smc);
    addOthers(smc, shape.smcKeyCount);
}

void install(SimulatedHIDSensors& hid, SimulatedThermals& thermals, const MacShape& shape) {
    for (std::size_t core = 0; core < shape.cores.size(); ++core) {
        const char* cluster = shape.cores[core] == CoreKind::efficiency ? "eACC" : "pACC";
        hid.add(fmt::format("{} MTR Temp Sensor{}", cluster, core),
                [&thermals, core] { return thermals.coreC(core); });
    }
    hid.add("PMU tdie1", [&thermals] { return thermals.packageC(); });
    hid.add("PMU tcal", [] { return 51.9; });
    hid.add("gas gauge battery", [&thermals] { return thermals.batteryC(); });
    hid.add("NAND CH0 temp", [&thermals] { return thermals.packageC() - 8.0; });
    hid.add("GPU MTR Temp Sensor1", [&thermals] { return thermals.packageC() - 2.0; });
}

std::vector<std::string> cpuKeys(const MacShape& shape) {
    std::vector<std::string> keys{"TCMz"};
    for (auto& place : placesOf(shape)) keys.push_back(std::move(place.key));
    std::ranges::sort(keys);
    return keys;
}

}  // namespace vtx::sensors
