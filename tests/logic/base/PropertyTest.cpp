// SPDX-License-Identifier: MIT
#include "base/Property.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace vtx {
namespace {

static_assert(!std::is_constructible_v<Property, const int*>, "a pointer is no flag");

const Property drive{PropertyMap{
    {"Statistics", PropertyMap{{"Bytes (Read)", std::int64_t{1} << 40}, {"Latency", 2.5}}},
    {"Removable", false},
    {"Name", "Disk"},
    {"Serial", toData("ab")},
    {"Partitions", PropertyList{1, "two"}},
}};

TEST(Property, a_path_is_read_in_one_expression) {
    const PropertyView view(drive);
    EXPECT_EQ(view["Statistics"]["Bytes (Read)"].number(), std::int64_t{1} << 40);
    EXPECT_EQ(view["Name"].text(), "Disk");
    EXPECT_EQ(view["Removable"].flag(), false);
    EXPECT_EQ(view["Partitions"][1].text(), "two");
    ASSERT_NE(view["Serial"].data(), nullptr);
    EXPECT_EQ(asText(*view["Serial"].data()), "ab");
}

TEST(Property, a_path_that_leads_nowhere_is_absent_at_every_depth) {
    const PropertyView view(drive);
    EXPECT_FALSE(view["Missing"].exists());
    EXPECT_FALSE(view["Missing"]["deeper"][3]["still"].exists());
    EXPECT_FALSE(view["Missing"]["deeper"].number());
    EXPECT_FALSE(view["Partitions"][2].exists());
    EXPECT_FALSE(PropertyView()["anything"].text());
}

TEST(Property, a_member_of_what_is_no_map_and_an_entry_of_what_is_no_list_are_absent) {
    const PropertyView view(drive);
    EXPECT_FALSE(view["Name"]["member"].exists());
    EXPECT_FALSE(view["Name"][0].exists());
    EXPECT_FALSE(view[0].exists());
    EXPECT_FALSE(view["Partitions"]["1"].exists());
}

TEST(Property, nothing_is_converted_from_one_type_to_another) {
    const PropertyView text = PropertyView(drive)["Name"];
    EXPECT_FALSE(text.number() || text.real() || text.flag() || text.data() || text.list() ||
                 text.map());
    const Property flag(true);
    EXPECT_FALSE(PropertyView(flag).number() || PropertyView(flag).real());
    const Property one(1);
    EXPECT_FALSE(PropertyView(one).flag());
    const Property digits("12");
    EXPECT_FALSE(PropertyView(digits).number());
}

TEST(Property, a_number_with_a_fraction_is_real_and_not_whole) {
    const PropertyView latency = PropertyView(drive)["Statistics"]["Latency"];
    EXPECT_EQ(latency.real(), 2.5);
    EXPECT_FALSE(latency.number());
}

TEST(Property, a_whole_number_is_real_too_and_a_double_without_fraction_is_whole) {
    const Property whole(7);
    EXPECT_EQ(PropertyView(whole).real(), 7.0);
    const Property real(-7.0);
    EXPECT_EQ(PropertyView(real).number(), -7);
}

class PropertyOfDouble : public testing::TestWithParam<double> {};

TEST_P(PropertyOfDouble, that_fits_no_whole_number_is_none) {
    const Property value(GetParam());
    EXPECT_FALSE(PropertyView(value).number());
    EXPECT_TRUE(PropertyView(value).real());
}

INSTANTIATE_TEST_SUITE_P(Values, PropertyOfDouble,
                         testing::Values(0.5, -0.1, 1e19, -1e19, 9223372036854775808.0,
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity(),
                                         std::numeric_limits<double>::quiet_NaN()));

TEST(Property, the_lowest_whole_number_fits) {
    const Property value(-9223372036854775808.0);
    EXPECT_EQ(PropertyView(value).number(), std::numeric_limits<std::int64_t>::min());
}

}  // namespace
}  // namespace vtx
