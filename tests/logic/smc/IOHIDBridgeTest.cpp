// SPDX-License-Identifier: MIT
#include "smc/IOHIDBridge.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/simulated/Operations.h"
#include "smc/BatteryTemperatureReader.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

constexpr auto category = "IOHIDBridge";

// A machine whose event system has the sensors that the test adds.
struct HIDBench : TestBench {
    HIDBench() { mac.hidSensors.clear(); }
    void add(Property name, std::optional<double> celsius) {
        mac.hidSensors.add(std::move(name), [celsius] { return celsius; });
    }
    std::optional<double> cpuMaxC() {
        const auto bridge = IOHIDBridge::open(ports());
        return bridge->readTemperatureReading().cpuMaxC;
    }
};

std::optional<double> readingOf(Property name, double celsius) {
    HIDBench b;
    b.add(std::move(name), celsius);
    return b.cpuMaxC();
}

TEST(IOHIDBridge, tells_how_many_services_it_has) {
    HIDBench b;
    b.add("PMU tdie1", 40.0);
    b.add("NAND CH0 temp", 40.0);
    ASSERT_TRUE(IOHIDBridge::open(b.ports()));
    EXPECT_TRUE(
        b.log.contains(LogLevel::info, category, "IOHID temperature bridge ready (2 services)"));
}

TEST(IOHIDBridge, each_step_that_fails_leaves_none_and_says_which) {
    const std::pair<std::string, std::string_view> steps[] = {
        {"dlopen:nil", "dlopen(nil) failed — IOHID bridge disabled"},
        {"dlsym:IOHIDServiceClientCopyProperty",
         "One or more IOHIDEventSystem symbols unresolved — falling back"},
        {"IOHIDEventSystemClientCreate", "IOHIDEventSystemClientCreate returned nil"},
        {"IOHIDEventSystemClientCopyServices", "IOHIDEventSystemClientCopyServices returned nil"}};
    for (const auto& [step, message] : steps) {
        HIDBench b;
        b.failures.failNext(step);
        EXPECT_FALSE(IOHIDBridge::open(b.ports())) << step;
        EXPECT_EQ(b.log.count(LogLevel::error, category, message), 1U) << step;
        EXPECT_EQ(b.platform.outstanding(), 0U) << step;
    }
}

TEST(IOHIDBridge, symbols_are_looked_up_in_order_until_one_is_missing) {
    const char* const symbols[] = {"IOHIDEventSystemClientCreate",
                                   "IOHIDEventSystemClientSetMatching",
                                   "IOHIDEventSystemClientCopyServices",
                                   "IOHIDServiceClientCopyEvent",
                                   "IOHIDEventGetFloatValue",
                                   "IOHIDServiceClientCopyProperty"};
    for (std::size_t missing = 0; missing < std::size(symbols); ++missing) {
        HIDBench b;
        b.failures.failNext(std::string("dlsym:") + symbols[missing]);
        EXPECT_FALSE(IOHIDBridge::open(b.ports()));
        for (std::size_t i = 0; i < std::size(symbols); ++i)
            EXPECT_EQ(b.platform.calls(std::string("dlsym:") + symbols[i]), i <= missing ? 1U : 0U);
    }
}

TEST(IOHIDBridge, names_of_the_processor_count_whatever_their_case) {
    for (const char* name :
         {"PMU tdie1", "pACC MTR Temp Sensor2", "eACC MTR Temp Sensor0", "CPU die", "xxTDIExx"})
        EXPECT_EQ(readingOf(name, 44), 44) << name;
}

TEST(IOHIDBridge, excluded_words_win_over_wanted_ones) {
    for (const char* word : {"battery", "NAND", "Ambient", "case", "skin", "tcal", "tdev",
                             "charger", "WiFi", "display"})
        EXPECT_EQ(readingOf("cpu tdie " + std::string(word), 44), std::nullopt) << word;
}

TEST(IOHIDBridge, a_name_without_a_listed_word_and_no_name_do_not_count) {
    EXPECT_EQ(readingOf("GPU MTR Temp Sensor1", 44), std::nullopt);
    EXPECT_EQ(readingOf("", 44), std::nullopt);
    EXPECT_EQ(readingOf(42, 44), std::nullopt);
    HIDBench b;
    b.mac.hidSensors.add({std::nullopt, [] { return 44.0; }});
    EXPECT_EQ(b.cpuMaxC(), std::nullopt);
}

TEST(IOHIDBridge, values_count_between_0_and_120_degrees) {
    for (const double value : {0.0, -3.0, 120.0, 1e300, std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity()})
        EXPECT_EQ(readingOf("PMU tdie1", value), std::nullopt) << value;
    EXPECT_EQ(readingOf("PMU tdie1", 119.9), 119.9);
    EXPECT_EQ(readingOf("PMU tdie1", 0.1), 0.1);
}

TEST(IOHIDBridge, a_service_without_an_event_is_passed_over) {
    HIDBench b;
    b.add("PMU tdie1", std::nullopt);
    b.add("PMU tdie2", 41.0);
    EXPECT_EQ(b.cpuMaxC(), 41);
}

TEST(IOHIDBridge, outliers_are_rejected_as_with_the_smc) {
    HIDBench b;
    for (const double value : {40.0, 41.0, 42.0, 43.0, 90.0}) b.add("tdie", value);
    EXPECT_EQ(b.cpuMaxC(), 43);
}

TEST(IOHIDBridge, a_reading_without_any_value_is_one_all_the_same) {
    HIDBench b;
    const auto bridge = IOHIDBridge::open(b.ports());
    EXPECT_EQ(bridge->readTemperatureReading(),
              (TemperatureReading{std::nullopt, std::nullopt, b.clock.now()}));
}

TEST(IOHIDBridge, the_batterys_driver_tells_the_battery) {
    HIDBench b;
    b.mac.registry.add(b.mac.registry.root("IOService"), "AppleSmartBattery", "AppleSmartBattery",
                       {{"Temperature", 3050}});
    EXPECT_EQ(IOHIDBridge::open(b.ports())->readTemperatureReading().batteryC, 30.5);
}

TEST(IOHIDBridge, gives_everything_back) {
    TestBench b;
    {
        const auto bridge = IOHIDBridge::open(b.ports());
        EXPECT_TRUE(bridge->readTemperatureReading().cpuMaxC);
        EXPECT_EQ(b.platform.instruments.handles.all(),
                  (OutstandingHandles::Counts{{"HIDEventClient", 1}, {"HIDServices", 1}}));
    }
    EXPECT_EQ(b.platform.outstanding(), 0U);
}

std::optional<double> batteryWith(std::optional<Property> temperature) {
    TestBench b;
    PropertyMap properties;
    if (temperature) properties.emplace("Temperature", *std::move(temperature));
    b.mac.registry.add(b.mac.registry.root("IOService"), "AppleSmartBattery", "AppleSmartBattery",
                       std::move(properties));
    const auto celsius = BatteryTemperatureReader::readFromAppleSmartBattery(b.platform.ioRegistry);
    EXPECT_EQ(b.platform.outstanding(), 0U);
    return celsius;
}

TEST(BatteryTemperatureReader, reads_hundredths_of_a_degree_or_of_a_kelvin) {
    EXPECT_EQ(batteryWith(3050), 30.5);
    EXPECT_NEAR(batteryWith(30000).value_or(0), 26.85, 1e-9);
    EXPECT_EQ(batteryWith(0), 0.0);
}

TEST(BatteryTemperatureReader, what_no_battery_can_have_is_nothing) {
    EXPECT_EQ(batteryWith(20000), std::nullopt) << "200 degrees are not taken for kelvin";
    EXPECT_EQ(batteryWith(8000), std::nullopt);
    EXPECT_EQ(batteryWith(-1000), std::nullopt);
    EXPECT_EQ(batteryWith(7999), 79.99);
    EXPECT_EQ(batteryWith(-999), -9.99);
    EXPECT_EQ(batteryWith(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

TEST(BatteryTemperatureReader, without_a_number_there_is_nothing) {
    EXPECT_EQ(batteryWith(std::nullopt), std::nullopt);
    EXPECT_EQ(batteryWith("3050"), std::nullopt);
}

TEST(BatteryTemperatureReader, each_miss_is_nothing_and_leaks_nothing) {
    for (const auto step : {operations::serviceMatching, operations::getMatchingService,
                            operations::createCFProperties, operations::createCFPropertiesNull}) {
        TestBench b;
        b.mac.registry.add(b.mac.registry.root("IOService"), "AppleSmartBattery",
                           "AppleSmartBattery", {{"Temperature", 3050}});
        b.failures.failNext(step);
        EXPECT_EQ(BatteryTemperatureReader::readFromAppleSmartBattery(b.platform.ioRegistry),
                  std::nullopt)
            << step;
        EXPECT_EQ(b.platform.outstanding(), 0U);
    }
}

}  // namespace
}  // namespace vtx
