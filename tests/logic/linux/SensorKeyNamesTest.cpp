// SPDX-License-Identifier: MIT
#include "platform/linux/SensorKeyNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "platform/simulated/SimulatedUserDefaults.h"

namespace vtx::test {
namespace {

/// Every sensor hashes to the same.
std::uint64_t sameForAll(std::string_view) { return 5; }

struct NamesOfSensors : testing::Test {
    [[nodiscard]] std::string stored() const {
        const auto data = defaults.data(SensorKeyNames::settingsKey);
        return data ? std::string(asText(*data)) : "";
    }
    SimulatedUserDefaults defaults;
};

TEST_F(NamesOfSensors, are_the_same_in_every_version) {
    EXPECT_EQ(SensorKeyNames::stableHash(""), 0xcbf29ce484222325U);
    EXPECT_EQ(SensorKeyNames::stableHash("foobar"), 0x85944171f73967e8U);
    SensorKeyNames names(defaults);
    EXPECT_EQ(names.nameOf("TC", "/sys/devices/platform/coretemp.0|coretemp|Package id 0"),
              SensorKeyNames(defaults).nameOf(
                  "TC", "/sys/devices/platform/coretemp.0|coretemp|Package id 0"));
}

TEST_F(NamesOfSensors, have_four_characters_and_begin_as_wanted) {
    SensorKeyNames names(defaults);
    EXPECT_EQ(names.nameOf("TC", "a")->size(), 4u);
    EXPECT_TRUE(names.nameOf("TC", "a")->starts_with("TC"));
    EXPECT_EQ(names.nameOf("S", "a")->size(), 4u);
    EXPECT_TRUE(names.nameOf("S", "a")->starts_with('S'));
}

TEST_F(NamesOfSensors, store_nothing_while_no_two_meet) {
    SensorKeyNames names(defaults);
    (void)names.nameOf("TC", "a");
    (void)names.nameOf("TC", "b");
    names.store();
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(NamesOfSensors, that_meet_differ_and_stay_whichever_comes_first_the_next_time) {
    SensorKeyNames first(defaults, sameForAll);
    const auto a = first.nameOf("TC", "a");
    const auto b = first.nameOf("TC", "b");
    EXPECT_EQ(a, "TC50");
    EXPECT_EQ(b, "TC60");
    first.store();
    EXPECT_EQ(stored(), "TC60 b\n");
    SensorKeyNames second(defaults, sameForAll);
    EXPECT_EQ(second.nameOf("TC", "b"), b);
    EXPECT_EQ(second.nameOf("TC", "a"), a);
    second.store();
    EXPECT_EQ(defaults.writes, 1);
}

TEST_F(NamesOfSensors, that_gave_way_keep_their_place_while_they_are_away) {
    SensorKeyNames first(defaults, sameForAll);
    (void)first.nameOf("TC", "a");
    (void)first.nameOf("TC", "b");
    first.store();
    SensorKeyNames second(defaults, sameForAll);
    EXPECT_EQ(second.nameOf("TC", "a"), "TC50");
    EXPECT_EQ(second.nameOf("TC", "c"), "TC70");
    EXPECT_EQ(second.nameOf("TC", "b"), "TC60");
}

TEST_F(NamesOfSensors, are_told_apart_by_their_beginning) {
    SensorKeyNames names(defaults, sameForAll);
    EXPECT_EQ(names.nameOf("TC", "a"), "TC50");
    EXPECT_EQ(names.nameOf("S", "a"), "S500");
    EXPECT_EQ(names.nameOf("TC", "a"), "TC50");
}

TEST_F(NamesOfSensors, end_with_the_last_one_that_is_free) {
    SensorKeyNames names(defaults, sameForAll);
    std::set<std::string> all;
    for (int i = 0; i < 62; ++i) all.insert(*names.nameOf("ABC", std::to_string(i)));
    EXPECT_EQ(all.size(), 62u);
    EXPECT_FALSE(names.nameOf("ABC", "one more"));
}

TEST_F(NamesOfSensors, with_any_bytes_are_stored_and_found_again) {
    const std::string hostile("/sys/x|chip|100% \n\t\xff\0;", 23);
    SensorKeyNames first(defaults, sameForAll);
    (void)first.nameOf("TC", "a");
    const auto name = first.nameOf("TC", hostile);
    first.store();
    EXPECT_EQ(SensorKeyNames(defaults, sameForAll).nameOf("TC", hostile), name);
    EXPECT_EQ(stored().find_first_not_of("\n", stored().find('\n')), std::string::npos);
}

TEST_F(NamesOfSensors, take_no_harm_from_settings_that_are_damaged) {
    for (const std::string text : {"", "\n\n", "TC60", "TC60 ", "T/60 b\n", "toolong b\n",
                                   "TC60 %\n", "TC60 %zz\n", "TC60 %4\n", "\xff\xff\xff\xff b\n"}) {
        defaults.setData(SensorKeyNames::settingsKey, toData(text));
        SensorKeyNames names(defaults, sameForAll);
        EXPECT_EQ(names.nameOf("TC", "b"), "TC50") << text;
    }
    std::string many;
    for (int i = 0; i < 100'000; ++i) many += "Sabc x\n";
    defaults.setData(SensorKeyNames::settingsKey, toData(many));
    EXPECT_EQ(SensorKeyNames(defaults, sameForAll).nameOf("TC", "b"), "TC50");
}

TEST_F(NamesOfSensors, that_are_stored_are_given_to_their_own_beginning_and_once) {
    defaults.setData(SensorKeyNames::settingsKey, toData("TC60 a\nSabc a\n"));
    SensorKeyNames names(defaults, sameForAll);
    EXPECT_EQ(names.nameOf("TC", "a"), "TC60");
    EXPECT_EQ(names.nameOf("S", "a"), "Sabc");
    EXPECT_EQ(names.nameOf("TG", "a"), "TG50");
    EXPECT_NE(names.nameOf("T", "a"), "TC60");
}

TEST_F(NamesOfSensors, are_stored_up_to_a_bound) {
    SensorKeyNames names(defaults, sameForAll);
    for (int i = 0; i < 1100; ++i) ASSERT_TRUE(names.nameOf("S", std::to_string(i)));
    names.store();
    const std::string text = stored();
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(text, '\n')), SensorKeyNames::mostStored);
}

}  // namespace
}  // namespace vtx::test
