// SPDX-License-Identifier: MIT
#include "platform/linux/SensorText.h"

#include <gtest/gtest.h>

#include <string>

namespace vtx {
namespace {

TEST(SensorText, temperatures_are_thousandths_of_a_degree) {
    EXPECT_EQ(parseTemperature("52000\n"), 52.0);
    EXPECT_EQ(parseTemperature("58875\n"), 58.875);
    EXPECT_EQ(parseTemperature("-4500\n"), -4.5);
    EXPECT_EQ(parseTemperature("126999\n"), 126.999);
}

TEST(SensorText, a_battery_counts_tenths) {
    EXPECT_EQ(parseTemperature("305\n", TemperatureUnit::tenths), 30.5);
    EXPECT_EQ(parseTemperature("1269\n", TemperatureUnit::tenths), 126.9);
    EXPECT_FALSE(parseTemperature("1270\n", TemperatureUnit::tenths));
    EXPECT_FALSE(parseTemperature("-2731\n", TemperatureUnit::tenths));
}

TEST(SensorText, what_drivers_give_for_nothing_is_no_temperature) {
    for (const auto* text : {"0\n", "127000\n", "127500\n", "-128000\n", "255000\n", "-273150\n"})
        EXPECT_FALSE(parseTemperature(text)) << text;
}

TEST(SensorText, what_is_no_number_is_no_figure) {
    for (const std::string text :
         {"", "\n", "junk\n", "52.5\n", "0x20\n", "52000 52000\n", "--5\n", "1e3\n",
          "9999999999999999999999999999999999999999\n", "-9223372036854775809\n"}) {
        EXPECT_FALSE(parseTemperature(text)) << text;
        EXPECT_FALSE(parseTemperature(text, TemperatureUnit::tenths)) << text;
        EXPECT_FALSE(parseFanSpeed(text)) << text;
    }
    EXPECT_FALSE(parseTemperature("9223372036854775807", TemperatureUnit::tenths));
    EXPECT_FALSE(parseTemperature("-9223372036854775808", TemperatureUnit::tenths));
}

TEST(SensorText, a_fan_may_rest_but_not_turn_backwards_or_at_all_that_a_register_holds) {
    EXPECT_EQ(parseFanSpeed("0\n"), 0.0);
    EXPECT_EQ(parseFanSpeed("2410\n"), 2410.0);
    EXPECT_EQ(parseFanSpeed("65534\n"), 65534.0);
    for (const auto* text : {"-1\n", "65535\n", "4294967295\n"}) EXPECT_FALSE(parseFanSpeed(text));
}

TEST(SensorText, a_flag_is_raised_by_any_number_but_zero) {
    EXPECT_TRUE(isRaised("1\n"));
    for (const auto* text : {"0\n", "", "no\n"}) EXPECT_FALSE(isRaised(text)) << text;
}

TEST(SensorText, a_name_is_cut_and_trimmed_whatever_its_bytes) {
    EXPECT_EQ(sensorName(" Package id 0 \n"), "Package id 0");
    EXPECT_EQ(sensorName("\n"), "");
    EXPECT_EQ(sensorName("\xff\xfe\n"), "\xff\xfe");
    EXPECT_EQ(sensorName(std::string(5000, 'a')).size(), 100u);
    EXPECT_EQ(sensorName(std::string(99, 'a') + " b"), std::string(99, 'a'));
}

TEST(SensorText, channels_are_told_by_their_files_names) {
    EXPECT_EQ(channelNumber("temp12_input", "temp", "_input"), 12u);
    EXPECT_EQ(channelNumber("cdev0", "cdev", ""), 0u);
    for (const auto* name : {"temp_input", "temp1_label", "fan1_input", "temp1x_input",
                             "temp-1_input", "temp10000_input", "xtemp1_input", "temp", ""})
        EXPECT_FALSE(channelNumber(name, "temp", "_input")) << name;
    EXPECT_FALSE(channelNumber("cdev0_weight", "cdev", ""));
}

}  // namespace
}  // namespace vtx
