// SPDX-License-Identifier: MIT
#include "ui/models/NetworkSectionModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SpokenIn.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = NetworkInterfaceSnapshot::Kind;

NetworkInterfaceSnapshot interface(const char* name, Kind kind, bool isActive) {
    NetworkInterfaceSnapshot made;
    made.bsdName = name;
    made.kind = kind;
    made.isActive = isActive;
    return made;
}

NetworkReading reading(std::vector<NetworkInterfaceSnapshot> interfaces) {
    NetworkReading made;
    made.interfaces = std::move(interfaces);
    return made;
}

TEST(NetworkSectionModel, before_the_first_reading_it_says_that_it_collects) {
    const test::SpokenIn texts;
    NetworkSectionModel expected;
    expected.collecting = "Collecting…";
    EXPECT_EQ(describeNetworkSection(std::nullopt, texts), expected);
}

TEST(NetworkSectionModel, without_interfaces_there_is_the_placeholder_alone) {
    const test::SpokenIn texts;
    NetworkSectionModel expected;
    expected.placeholder = PlaceholderModel{"wifi.slash", "No network interfaces detected.", ""};
    EXPECT_EQ(describeNetworkSection(reading({}), texts), expected);
}

TEST(NetworkSectionModel, shows_both_ways_with_their_totals) {
    const test::SpokenIn texts;
    auto both = reading({interface("en0", Kind::wifi, true)});
    both.bytesInPerSecond = 8.4 * 1048576;
    both.bytesOutPerSecond = 1023;
    both.totalBytesIn = 6'775'310'746;
    both.totalBytesOut = 916'665'139;
    const auto model = describeNetworkSection(both, texts);
    EXPECT_EQ(model.title, "Network");
    EXPECT_THAT(model.throughput,
                ElementsAre(FigureModel{"arrow.down.circle.fill", "Download", "8.4 MB/s", Hue::cyan,
                                        "Received", "6.31 GB"},
                            FigureModel{"arrow.up.circle.fill", "Upload", "1023 B/s", Hue::orange,
                                        "Sent", "874.2 MB"}));
}

TEST(NetworkSectionModel, rates_that_are_not_known_yet_are_dashes) {
    const test::SpokenIn texts;
    const auto model =
        describeNetworkSection(reading({interface("lo", Kind::loopback, true)}), texts);
    EXPECT_EQ(model.throughput.at(0).value, "—");
    EXPECT_EQ(model.throughput.at(1).value, "—");
    EXPECT_EQ(model.throughput.at(0).note, "0 KB");
}

TEST(NetworkSectionModel, the_primary_interface_tells_its_addresses) {
    const test::SpokenIn texts(Language::de);
    auto primary = interface("en0", Kind::wifi, true);
    primary.ipv4 = "192.168.1.42";
    primary.macAddress = "3c:22:fb:0a:7e:91";
    auto all = reading({primary});
    all.primary = primary;
    EXPECT_EQ(describeNetworkSection(all, texts).primary,
              (PrimaryInterfaceModel{
                  "wifi",
                  "Aktiv",
                  "en0",
                  {{"IPv4", "192.168.1.42"}, {"IPv6", "—"}, {"MAC", "3c:22:fb:0a:7e:91"}}}));
}

TEST(NetworkSectionModel, without_a_primary_interface_there_is_no_card_of_one) {
    const test::SpokenIn texts;
    EXPECT_FALSE(
        describeNetworkSection(reading({interface("lo", Kind::loopback, true)}), texts).primary);
}

TEST(NetworkSectionModel, each_kind_of_interface_has_its_name_and_symbol) {
    const test::SpokenIn texts;
    const std::tuple<Kind, const char*, const char*> cases[] = {
        {Kind::wifi, "Wi-Fi", "wifi"},
        {Kind::ethernet, "Ethernet", "cable.connector"},
        {Kind::loopback, "Loopback", "arrow.triangle.2.circlepath"},
        {Kind::cellular, "Cellular", "antenna.radiowaves.left.and.right"},
        {Kind::vpn, "VPN", "lock.shield"},
        {Kind::other, "Other", "questionmark.circle"}};
    for (const auto& [kind, label, symbol] : cases) {
        const auto model = describeNetworkSection(reading({interface("x0", kind, true)}), texts);
        EXPECT_THAT(model.interfaces, ElementsAre(InterfaceRowModel{symbol, "x0", label, "Active",
                                                                    Hue::green, true}));
    }
}

TEST(NetworkSectionModel, an_inactive_interface_says_so_in_the_second_colour) {
    const test::SpokenIn texts;
    const auto model = describeNetworkSection(
        reading({interface("en0", Kind::wifi, true), interface("en5", Kind::ethernet, false)}),
        texts);
    EXPECT_EQ(model.interfaces.at(1), (InterfaceRowModel{"cable.connector", "en5", "Ethernet",
                                                         "Inactive", Hue::secondary, false}));
    EXPECT_THAT(model.noneActive, IsEmpty());
}

TEST(NetworkSectionModel, where_none_is_active_that_is_said_and_all_are_listed) {
    const test::SpokenIn texts;
    const auto model =
        describeNetworkSection(reading({interface("en0", Kind::wifi, false)}), texts);
    EXPECT_EQ(model.noneActive, "No active interface");
    EXPECT_EQ(model.interfaces.size(), 1U);
}

}  // namespace
}  // namespace vtx
