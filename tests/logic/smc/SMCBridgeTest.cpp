// SPDX-License-Identifier: MIT
#include "smc/SMCBridge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "smc/PersistentDenylistStore.h"
#include "support/SMCBench.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

constexpr auto category = "SMCBridge";
constexpr auto storageKey = "Vantrix.HotSpotDenylist.v1.Apple_M2_Max.Mac14,6.24C101";

// What an earlier run stored for this machine.
SimulatedUserDefaults::Values stored(std::string_view list) { return {{storageKey, toData(list)}}; }

MacShape ofChip(std::string chip) {
    MacShape shape = MacShape::standard();
    shape.chip = std::move(chip);
    return shape;
}

std::string readyLine(const SMCBench& b) {
    for (const auto& line : b.log.lines(category))
        if (line.message.starts_with("SMC bridge")) return line.message;
    return {};
}

std::optional<double> cpuMaxC(SMCBridge& bridge) {
    const auto reading = bridge.readTemperatureReading();
    return reading ? reading->cpuMaxC : std::nullopt;
}

TEST(SMCBridge, without_an_smc_there_is_none) {
    SMCBench b;
    b.smc.services.clear();
    EXPECT_FALSE(b.open());
    EXPECT_EQ(readyLine(b), "");
}

TEST(SMCBridge, tells_what_it_found) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"Te05", 50}});
    const auto bridge = b.open();
    EXPECT_TRUE(b.log.contains(
        LogLevel::info, category,
        "SMC bridge ready (chip=Apple M2 Max, model=Mac14,6, build=24C101, cpu=2, gpu=0, "
        "preset=0, restored=0, calibration=pending)"));
}

TEST(SMCBridge, what_the_kernel_does_not_tell_is_unknown) {
    SMCBench b;
    b.addFloat("Tp01", 50);
    b.platform.sysctl.remove("machdep.cpu.brand_string");
    b.platform.sysctl.setBytes("hw.model", {});
    b.failures.failAlways("sysctlbyname:kern.osversion");
    const auto bridge = b.open();
    EXPECT_THAT(readyLine(b), testing::HasSubstr("chip=unknown, model=unknown, build=unknown"));
}

TEST(SMCBridge, without_sensors_it_says_so_and_reads_the_battery_alone) {
    SMCBench b;
    const auto bridge = b.open();
    ASSERT_TRUE(bridge);
    EXPECT_TRUE(b.log.contains(LogLevel::standard, category,
                               "SMC bridge opened but no float temperature keys were discovered"));
    EXPECT_EQ(bridge->readTemperatureReading(), std::nullopt);
    b.addFloat("B0AT", 31.5F);
    EXPECT_EQ(bridge->readTemperatureReading(),
              (TemperatureReading{std::nullopt, 31.5, b.clock.now()}));
}

TEST(SMCBridge, a_preset_belongs_to_one_chip_without_suffix) {
    EXPECT_EQ(SMCBridge::hardcodedHotSpotDenylist("Apple M3").size(), 23U);
    EXPECT_EQ(SMCBridge::hardcodedHotSpotDenylist("The Apple M3 chip").size(), 23U);
    for (const char* chip : {"Apple M3 Pro", "Apple M3 Max", "Apple M2", "Apple M4", "unknown", ""})
        EXPECT_TRUE(SMCBridge::hardcodedHotSpotDenylist(chip).empty()) << chip;
}

TEST(SMCBridge, the_preset_counts_whole_in_the_log_whatever_the_machine_has) {
    for (const auto& [chip, preset] :
         {std::pair("Apple M3", "preset=23"), std::pair("Apple M3 Pro", "preset=0"),
          std::pair("Apple M3 Max", "preset=0")}) {
        SMCBench b(ofChip(chip));
        b.addFloat("Tp01", 50);
        const auto bridge = b.open();
        EXPECT_THAT(readyLine(b), testing::HasSubstr(preset));
        EXPECT_TRUE(bridge->calibration().denylist().empty());
    }
}

TEST(SMCBridge, the_preset_works_from_the_first_poll) {
    SMCBench b(ofChip("Apple M3"));
    b.addFloats({{"Tp01", 50}, {"Tp02", 69}, {"Te06", 68}});
    const auto bridge = b.open();
    EXPECT_EQ(bridge->calibration().denylist(), (SensorKeySet{"Te06", "Tp02"}));
    EXPECT_EQ(cpuMaxC(*bridge), 50);
    EXPECT_EQ(b.smc.key("Tp02").reads, 2U) << "calibration sees them";
}

TEST(SMCBridge, takes_the_hottest_credible_sensor) {
    SMCBench b;
    b.addFloats({{"Tp01", 40}, {"Tp02", 41}, {"Tp03", 42}, {"Tp04", 43}, {"Tp05", 90}});
    EXPECT_EQ(cpuMaxC(*b.open()), 43);
}

TEST(SMCBridge, impossible_values_do_not_count) {
    SMCBench b;
    b.addFloats({{"Tp01", 30}, {"Tp02", 0}});
    const auto bridge = b.open();
    const float infinite = std::numeric_limits<float>::infinity();
    for (const float value : {0.0F, -1.0F, 150.0F, 1e30F, infinite, -infinite,
                              std::numeric_limits<float>::quiet_NaN()}) {
        b.smc.setFloat("Tp02", value);
        EXPECT_EQ(cpuMaxC(*bridge), 30) << value;
    }
    b.smc.setFloat("Tp02", 149.9F);
    EXPECT_EQ(cpuMaxC(*bridge), static_cast<double>(149.9F));
}

TEST(SMCBridge, a_key_that_fails_is_left_out_of_that_poll_alone_without_a_word) {
    SMCBench b;
    b.addFloats({{"Tp01", 60}, {"Tp02", 50}});
    const auto bridge = b.open();
    const auto lines = b.log.lines().size();
    b.smc.change("Tp01", [](auto& key) { key.failsEvery = 2; });
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(cpuMaxC(*bridge), 50);
        EXPECT_EQ(cpuMaxC(*bridge), 60);
    }
    EXPECT_EQ(b.log.lines().size(), lines);
}

TEST(SMCBridge, where_all_sensors_fail_there_is_no_reading_unless_the_battery_gives_one) {
    SMCBench b;
    b.addFloat("Tp01", 60);
    const auto bridge = b.open();
    b.smc.change("Tp01", [](auto& key) { key.failsEvery = 1; });
    EXPECT_EQ(bridge->readTemperatureReading(), std::nullopt);
    b.addFloat("B0AT", 30);
    EXPECT_EQ(bridge->readTemperatureReading()->cpuMaxC, std::nullopt);
    EXPECT_EQ(bridge->readTemperatureReading()->batteryC, 30);
}

TEST(SMCBridge, the_battery_is_believed_between_0_and_80_degrees) {
    SMCBench b;
    b.addFloat("B0AT", 30);
    const auto bridge = b.open();
    for (const float value : {0.0F, -5.0F, 80.0F, 85.0F, 149.0F}) {
        b.smc.setFloat("B0AT", value);
        EXPECT_EQ(bridge->readBatteryTemperature(), std::nullopt) << value;
    }
    b.smc.setFloat("B0AT", 79.5F);
    EXPECT_EQ(bridge->readBatteryTemperature(), 79.5);
    b.add("B0AT", "sp78", encodeSMCSigned256ths(30));
    EXPECT_EQ(b.open()->readBatteryTemperature(), std::nullopt);
}

TEST(SMCBridge, where_the_smc_has_no_credible_battery_value_the_batterys_driver_is_asked) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"B0AT", 85}});
    b.mac.registry.add(b.mac.registry.root("IOService"), "AppleSmartBattery", "AppleSmartBattery",
                       {{"Temperature", 3050}});
    const auto bridge = b.open();
    EXPECT_EQ(bridge->readTemperatureReading()->batteryC, 30.5);
    b.smc.setFloat("B0AT", 28);
    EXPECT_EQ(bridge->readTemperatureReading()->batteryC, 28);
}

TEST(SMCBridge, a_steady_poll_costs_one_value_of_each_sensor_in_use_and_the_batterys) {
    SMCBench b(MacShape::standard(), stored(R"(["Tp02"])"));
    b.addFloats({{"Tp01", 50}, {"Tp02", 80}, {"Tp03", 50}, {"B0AT", 30}, {"Tg0f", 40}});
    const auto bridge = b.open();
    (void)bridge->readTemperatureReading();
    const auto before = b.smc.key("Tp02").reads;
    b.platform.resetCalls();
    (void)bridge->readTemperatureReading();
    EXPECT_EQ(b.platform.instruments.counter.all(),
              (CallCounter::Counts{{"IOConnectCallStructMethod", 3}, {"SMC:readValue", 3}}));
    EXPECT_EQ(b.smc.key("Tp02").reads, before);
}

TEST(SMCBridge, a_stored_list_is_restored_where_the_machine_has_its_keys) {
    SMCBench b(MacShape::standard(), stored(R"(["Tp02", "Tp99", "Tp01", "Tp02", ""])"));
    b.addFloats({{"Tp01", 50}, {"Tp02", 80}, {"Tp03", 50}});
    const auto bridge = b.open();
    EXPECT_EQ(bridge->calibration().denylist(), (SensorKeySet{"Tp01", "Tp02"}));
    EXPECT_THAT(readyLine(b), testing::HasSubstr("restored=2, calibration=skipped"));
}

TEST(SMCBridge, keys_of_the_preset_do_not_count_as_restored) {
    MacShape shape = ofChip("Apple M3");
    SMCBench b(shape, {{"Vantrix.HotSpotDenylist.v1.Apple_M3.Mac14,6.24C101",
                        toData(R"(["Tp01", "Tp02"])")}});
    b.addFloats({{"Tp01", 50}, {"Tp02", 80}});
    const auto bridge = b.open();
    EXPECT_THAT(readyLine(b), testing::HasSubstr("preset=23, restored=1, calibration=skipped"));
}

TEST(SMCBridge, a_stored_empty_list_says_that_the_machine_was_calibrated) {
    SMCBench b(MacShape::standard(), stored("[]"));
    b.addFloat("Tp01", 50);
    const auto bridge = b.open();
    EXPECT_THAT(readyLine(b), testing::HasSubstr("restored=0, calibration=skipped"));
    EXPECT_TRUE(bridge->calibration().isDone());
}

TEST(SMCBridge, what_is_stored_and_no_list_of_texts_starts_a_new_calibration) {
    const std::string deep = std::string(5000, '[') + std::string(5000, ']');
    for (const std::string_view nonsense :
         {std::string_view(""), std::string_view("Tp01"), std::string_view("{}"),
          std::string_view(R"({"Tp01": 1})"), std::string_view(R"("Tp01")"),
          std::string_view(R"([1])"), std::string_view(R"(["Tp01", null])"),
          std::string_view(R"(["Tp01", ["Tp02"]])"), std::string_view(R"(["Tp01")"),
          std::string_view("[\"Tp01\"]\0x", 10), std::string_view("[\"\xff\xfe\"]"),
          std::string_view(deep)}) {
        SMCBench b(MacShape::standard(), stored(nonsense));
        b.addFloat("Tp01", 50);
        const auto bridge = b.open();
        EXPECT_FALSE(bridge->calibration().isDone()) << nonsense;
        EXPECT_TRUE(bridge->calibration().denylist().empty()) << nonsense;
    }
}

TEST(SMCBridge, another_build_has_a_list_of_its_own) {
    SMCBench b(MacShape::standard(), stored(R"(["Tp01"])"));
    b.addFloat("Tp01", 50);
    b.platform.sysctl.set("kern.osversion", "25A1");
    EXPECT_FALSE(b.open()->calibration().isDone());
}

TEST(SMCBridge, gives_everything_back_when_it_goes) {
    SMCBench b;
    b.addFloat("Tp01", 50);
    {
        const auto bridge = b.open();
        (void)bridge->readTemperatureReading();
        EXPECT_EQ(b.platform.outstanding(), 1U);
    }
    EXPECT_EQ(b.platform.outstanding(), 0U);
}

TEST(SMCBridge, a_connection_that_goes_bad_gives_nothing_from_then_on) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"B0AT", 30}});
    const auto bridge = b.open();
    b.failures.failAlways(operations::connectCallStructMethod, ioReturnNotOpen);
    EXPECT_EQ(bridge->readTemperatureReading(), std::nullopt);
}

}  // namespace
}  // namespace vtx
