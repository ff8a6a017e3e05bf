// SPDX-License-Identifier: MIT
#include "telemetry/NetworkReading.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace vtx {
namespace {

using Kind = NetworkInterfaceSnapshot::Kind;

TEST(NetworkKinds, are_told_by_the_name) {
    const std::pair<const char*, Kind> table[] = {
        {"lo0", Kind::loopback},  {"lo1", Kind::other},        {"lo", Kind::other},
        {"utun3", Kind::vpn},     {"ppp0", Kind::vpn},         {"ipsec1", Kind::vpn},
        {"tun0", Kind::other},    {"pdp_ip0", Kind::cellular}, {"pdp0", Kind::other},
        {"en0", Kind::wifi},      {"en1", Kind::ethernet},     {"en7", Kind::ethernet},
        {"en00", Kind::ethernet}, {"en", Kind::ethernet},      {"awdl0", Kind::other},
        {"bridge0", Kind::other}, {"gif0", Kind::other},       {"", Kind::other},
        {"EN0", Kind::other}};
    for (const auto& [name, kind] : table) EXPECT_EQ(kindByName(name), kind) << name;
}

TEST(NetworkKinds, have_the_names_of_their_cases) {
    EXPECT_EQ(rawValue(Kind::wifi), "wifi");
    EXPECT_EQ(rawValue(Kind::ethernet), "ethernet");
    EXPECT_EQ(rawValue(Kind::loopback), "loopback");
    EXPECT_EQ(rawValue(Kind::cellular), "cellular");
    EXPECT_EQ(rawValue(Kind::vpn), "vpn");
    EXPECT_EQ(rawValue(Kind::other), "other");
}

NetworkInterfaceSnapshot interface(std::string name, Kind kind, bool isActive = true) {
    NetworkInterfaceSnapshot made;
    made.bsdName = std::move(name);
    made.kind = kind;
    made.isActive = isActive;
    return made;
}

std::string primaryOf(std::vector<NetworkInterfaceSnapshot> interfaces) {
    const auto primary = pickPrimary(interfaces);
    return primary ? primary->bsdName : "-";
}

TEST(NetworkPrimary, goes_by_kind_before_it_goes_by_order) {
    std::vector all{interface("a", Kind::loopback), interface("b", Kind::other),
                    interface("c", Kind::vpn),      interface("d", Kind::cellular),
                    interface("e", Kind::ethernet), interface("f", Kind::wifi)};
    for (const auto* expected : {"f", "e", "d", "c", "b"}) {
        EXPECT_EQ(primaryOf(all), expected);
        all.pop_back();
    }
    EXPECT_EQ(primaryOf(all), "-");
    EXPECT_EQ(primaryOf({}), "-");
}

TEST(NetworkPrimary, is_the_first_active_one_of_its_kind) {
    EXPECT_EQ(primaryOf({interface("en0", Kind::wifi, false), interface("en5", Kind::ethernet),
                         interface("en6", Kind::ethernet)}),
              "en5");
    EXPECT_EQ(primaryOf({interface("en0", Kind::wifi, false)}), "-");
    EXPECT_EQ(primaryOf({interface("en0", Kind::wifi), interface("en7", Kind::ethernet),
                         interface("utun3", Kind::vpn)}),
              "en0");
    EXPECT_EQ(primaryOf({interface("awdl0", Kind::other), interface("lo0", Kind::loopback)}),
              "awdl0");
}

TEST(NetworkRates, are_the_rise_over_the_interval_and_never_below_zero) {
    constexpr auto last = std::numeric_limits<std::uint64_t>::max();
    constexpr auto half = std::uint64_t{1} << 63;
    EXPECT_EQ(rateBetween(1000, 3000, 2.0), 1000.0);
    EXPECT_EQ(rateBetween(5000, 1000, 1.0), 0.0);
    EXPECT_EQ(rateBetween(7, 7, 1.0), 0.0);
    EXPECT_EQ(rateBetween(half, 0, 1.0), 0.0);
    EXPECT_EQ(rateBetween(0, half, 1.0), 0.0);
    EXPECT_EQ(rateBetween(0, half - 1, 1.0), 9223372036854775807.0);
    // A sum beyond 64 bits goes on from zero, and its true rise is small.
    EXPECT_EQ(rateBetween(last, 4, 1.0), 5.0);
}

}  // namespace
}  // namespace vtx
