// SPDX-License-Identifier: MIT
#include "telemetry/NetworkMonitor.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/simulated/Operations.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using Kind = NetworkInterfaceSnapshot::Kind;
using Mac = std::array<std::uint8_t, 6>;

// A monitor of a machine without interfaces but those that a test adds.
struct Network {
    Network() { network.interfaces.clear(); }

    TestBench bench;
    SimulatedNetwork& network = bench.mac.network;
    NetworkMonitor monitor{bench.platform.networkInterfaces, bench.clock};

    SimulatedInterface& add(std::string name, std::vector<std::string> addresses = {}) {
        auto& added = network.interfaces.emplace_back();
        added.name = std::move(name);
        added.addresses = std::move(addresses);
        return added;
    }
    const NetworkReading& refresh() {
        monitor.refresh();
        return **monitor.latest;
    }
    const NetworkReading& refreshAfter(Duration span) {
        bench.clock.advanceBy(span);
        return refresh();
    }
    const NetworkInterfaceSnapshot& shown(std::string_view name) {
        const auto& all = refresh().interfaces;
        const auto found = std::ranges::find(all, name, &NetworkInterfaceSnapshot::bsdName);
        if (found == all.end()) throw std::runtime_error("not listed");
        return *found;
    }
    [[nodiscard]] std::size_t errors(std::string_view message) const {
        return bench.log.count(LogLevel::error, "NetworkMonitor", message);
    }
};

TEST(NetworkMonitor, the_first_refresh_lists_interfaces_and_totals_without_rates) {
    Network n;
    EXPECT_EQ(*n.monitor.latest, std::nullopt);
    auto& en0 = n.add("en0", {"192.0.2.1"});
    en0.bytesIn = 1000;
    en0.bytesOut = 200;
    const auto& reading = n.refresh();
    EXPECT_EQ(reading.interfaces.size(), 1U);
    EXPECT_EQ(reading.totalBytesIn, 1000U);
    EXPECT_EQ(reading.totalBytesOut, 200U);
    EXPECT_EQ(reading.bytesInPerSecond, std::nullopt);
    EXPECT_EQ(reading.bytesOutPerSecond, std::nullopt);
    EXPECT_EQ(reading.timestamp, n.bench.clock.now());
    EXPECT_EQ(reading.primary, reading.interfaces[0]);
}

TEST(NetworkMonitor, the_second_refresh_gives_rates_over_all_active_interfaces) {
    Network n;
    n.add("en0", {"192.0.2.1"});
    n.add("utun0", {"10.0.0.2"});
    n.add("en5");
    n.refresh();
    n.network.add("en0", 3000, 400);
    n.network.add("utun0", 1000, 100);
    n.network.add("en5", 90000, 90000);
    const auto& reading = n.refreshAfter(seconds(2));
    EXPECT_EQ(reading.bytesInPerSecond, 2000.0);
    EXPECT_EQ(reading.bytesOutPerSecond, 250.0);
}

TEST(NetworkMonitor, a_clock_that_was_set_back_gives_no_rates_once) {
    Network n;
    n.add("en0", {"192.0.2.1"});
    n.refresh();
    n.bench.clock.setWallClock(n.bench.clock.now() - std::chrono::hours(1));
    EXPECT_EQ(n.refreshAfter(seconds(1)).bytesInPerSecond, std::nullopt);
    EXPECT_EQ(n.refreshAfter(seconds(1)).bytesInPerSecond, 0.0);
}

TEST(NetworkMonitor, a_clock_that_is_set_within_an_interval_makes_no_peak_and_no_dip) {
    for (const auto by : {std::chrono::milliseconds(-990), std::chrono::milliseconds(7'200'000)}) {
        Network n;
        n.add("en0", {"192.0.2.1"});
        n.refresh();
        n.network.add("en0", 1000, 100);
        n.bench.clock.setWallClock(n.bench.clock.now() + by);
        EXPECT_EQ(n.refreshAfter(seconds(1)).bytesInPerSecond, 1000.0) << by.count();
    }
}

TEST(NetworkMonitor, interfaces_stand_by_name_whatever_the_kernels_order) {
    Network n;
    for (const auto* name : {"utun1", "en0", "lo0", "awdl0", "en10", "en2"}) n.add(name);
    std::string names;
    for (const auto& each : n.refresh().interfaces) names += each.bsdName + " ";
    EXPECT_EQ(names, "awdl0 en0 en10 en2 lo0 utun1 ");
}

TEST(NetworkMonitor, an_interface_with_a_link_local_address_alone_is_active) {
    Network n;
    n.add("en0", {"fe80::1"});
    EXPECT_TRUE(n.shown("en0").isActive);
    EXPECT_EQ(n.shown("en0").ipv6, "fe80::1");
}

TEST(NetworkMonitor, being_active_takes_both_flags_and_an_address) {
    for (const std::uint32_t flags : {0U, interfaceIsUp, interfaceIsRunning}) {
        Network n;
        n.add("en0", {"192.0.2.1"}).flags = flags;
        EXPECT_FALSE(n.shown("en0").isActive) << flags;
    }
    Network n;
    n.add("en5");
    EXPECT_FALSE(n.shown("en5").isActive);
}

TEST(NetworkMonitor, a_loopback_that_is_up_is_active_without_more) {
    Network n;
    auto& lo0 = n.add("lo0");
    lo0.flags = interfaceIsUp;
    lo0.bytesIn = 77;
    const auto& reading = n.refresh();
    EXPECT_TRUE(reading.interfaces[0].isActive);
    EXPECT_EQ(reading.totalBytesIn, 77U);
    EXPECT_EQ(reading.primary, std::nullopt);
    n.network.at("lo0").flags = interfaceIsRunning;
    EXPECT_FALSE(n.shown("lo0").isActive);
}

TEST(NetworkMonitor, wireless_comes_before_wired_and_tunnels) {
    Network n;
    for (const auto* name : {"utun3", "en7", "en0"}) n.add(name, {"192.0.2.1"});
    EXPECT_EQ(n.refresh().primary->bsdName, "en0");
    n.network.at("en0").flags = interfaceIsUp;
    EXPECT_EQ(n.refresh().primary->bsdName, "en7");
}

TEST(NetworkMonitor, a_kind_that_the_platform_tells_counts_and_the_name_then_says_nothing) {
    Network n;
    n.add("en0", {"192.0.2.1"}).kind = Kind::vpn;
    n.add("lo", {"127.0.0.1"}).kind = Kind::loopback;
    n.network.at("lo").flags = interfaceIsUp;
    n.add("bridge0");
    EXPECT_EQ(n.shown("en0").kind, Kind::vpn);
    EXPECT_TRUE(n.shown("lo").isActive);
    EXPECT_EQ(n.shown("bridge0").kind, Kind::other);
}

TEST(NetworkMonitor, the_first_ipv4_address_wins) {
    Network n;
    n.add("en0", {"192.0.2.1", "192.0.2.2"});
    EXPECT_EQ(n.shown("en0").ipv4, "192.0.2.1");
}

TEST(NetworkMonitor, an_ipv4_address_that_has_no_text_leaves_the_place_to_the_next) {
    Network n;
    n.add("en0", {"192.0.2.1", "192.0.2.2"});
    n.bench.failures.failNext(operations::getnameinfo);
    EXPECT_EQ(n.shown("en0").ipv4, "192.0.2.2");
}

TEST(NetworkMonitor, of_ipv6_addresses_the_last_routable_one_wins) {
    const std::pair<std::vector<std::string>, const char*> table[] = {
        {{"fe80::1", "2001:db8::1"}, "2001:db8::1"},
        {{"2001:db8::1", "fe80::1"}, "2001:db8::1"},
        {{"2001:db8::1", "2001:db8::2"}, "2001:db8::2"},
        {{"fe80::1", "fe80::2"}, "fe80::1"},
        {{"2001:db8::1", "fe80::1", "fd00::3", "fe80::2"}, "fd00::3"}};
    for (const auto& [addresses, expected] : table) {
        Network n;
        n.add("en0", addresses);
        EXPECT_EQ(n.shown("en0").ipv6, expected);
    }
}

TEST(NetworkMonitor, a_zone_is_cut_off) {
    Network n;
    n.add("lo0", {"fe80::1"});
    SocketAddress confined;
    confined.family = AddressFamily::inet6;
    confined.host = {std::byte{0xfe}, std::byte{0x80}};
    confined.scope = 1;
    EXPECT_EQ(n.bench.platform.networkInterfaces.getnameinfo(confined), "fe80::%lo0");
    EXPECT_EQ(n.monitor.formatIPv6(confined), "fe80::");
    EXPECT_EQ(n.shown("lo0").ipv6, "fe80::1");
}

TEST(NetworkMonitor, addresses_without_a_text_are_dropped) {
    Network n;
    n.add("en0", {"192.0.2.1", "fe80::1"});
    n.bench.failures.failAlways(operations::getnameinfo);
    EXPECT_EQ(n.shown("en0").ipv4, std::nullopt);
    EXPECT_EQ(n.shown("en0").ipv6, std::nullopt);
    EXPECT_FALSE(n.shown("en0").isActive);
    EXPECT_TRUE(n.bench.log.lines().empty());
}

TEST(NetworkMonitor, names_without_a_link_record_and_other_families_are_not_listed) {
    Network n;
    n.add("en0", {"192.0.2.1", "no address of these families"});
    n.add("ghost", {"192.0.2.2"}).hasLink = false;
    EXPECT_EQ(n.refresh().interfaces.size(), 1U);
    EXPECT_EQ(n.shown("en0").ipv4, "192.0.2.1");
}

TEST(NetworkMonitor, records_of_one_name_need_not_stand_together) {
    Network n;
    n.add("en0").bytesIn = 5;
    n.add("en1", {"192.0.2.9"});
    n.add("en0", {"192.0.2.1"}).hasLink = false;
    EXPECT_EQ(n.shown("en0").ipv4, "192.0.2.1");
    EXPECT_EQ(n.shown("en0").bytesIn, 5U);
}

TEST(NetworkMonitor, a_second_link_record_replaces_what_it_says) {
    Network n;
    auto& first = n.add("en0");
    first.bytesIn = 5;
    first.mac = Mac{1, 2, 3, 4, 5, 6};
    auto& second = n.add("en0");
    second.hasCounters = false;
    second.flags = 0;
    const auto& shown = n.shown("en0");
    EXPECT_EQ(shown.bytesIn, 5U);
    EXPECT_EQ(shown.macAddress, "01:02:03:04:05:06");
    EXPECT_EQ(n.refresh().interfaces.size(), 1U);
}

TEST(NetworkMonitor, a_mac_is_six_pairs_of_lower_case_digits) {
    Network n;
    n.add("en0").mac = Mac{0x00, 0x1B, 0xAB, 0x0f, 0xF0, 0x09};
    EXPECT_EQ(n.shown("en0").macAddress, "00:1b:ab:0f:f0:09");
    n.network.at("en0").mac = Mac{};
    EXPECT_EQ(n.shown("en0").macAddress, std::nullopt);
    n.network.at("en0").mac.reset();
    EXPECT_EQ(n.shown("en0").macAddress, std::nullopt);
}

TEST(NetworkMonitor, a_link_address_of_another_length_or_beyond_its_bytes_is_no_mac) {
    const std::vector<std::byte> bytes(12, std::byte{7});
    SocketAddress address;
    address.family = AddressFamily::link;
    address.link = {6, 6, bytes};
    EXPECT_EQ(NetworkMonitor::extractMAC(address), "07:07:07:07:07:07");
    for (const auto length : std::initializer_list<std::uint8_t>{0, 5, 7, 20, 255}) {
        address.link.addressLength = length;
        EXPECT_EQ(NetworkMonitor::extractMAC(address), std::nullopt) << +length;
    }
    address.link.addressLength = 6;
    for (const auto name : std::initializer_list<std::uint8_t>{7, 12, 255}) {
        address.link.nameLength = name;
        EXPECT_EQ(NetworkMonitor::extractMAC(address), std::nullopt) << +name;
    }
}

TEST(NetworkMonitor, an_interval_of_half_a_millisecond_gives_no_rates_and_moves_the_baseline) {
    Network n;
    n.add("en0", {"192.0.2.1"});
    n.refresh();
    n.network.add("en0", 1000, 0);
    EXPECT_EQ(n.refreshAfter(std::chrono::microseconds(500)).bytesInPerSecond, std::nullopt);
    EXPECT_EQ(n.refreshAfter(std::chrono::milliseconds(1)).bytesInPerSecond, std::nullopt);
    n.network.add("en0", 50, 0);
    EXPECT_EQ(n.refreshAfter(seconds(1)).bytesInPerSecond, 50.0);
}

TEST(NetworkMonitor, a_total_that_fell_gives_a_rate_of_zero) {
    Network n;
    n.add("en0", {"192.0.2.1"}).bytesIn = 5000;
    n.refresh();
    n.network.at("en0").bytesIn = 1000;
    const auto& reading = n.refreshAfter(seconds(1));
    EXPECT_EQ(reading.bytesInPerSecond, 0.0);
    EXPECT_EQ(reading.bytesOutPerSecond, 0.0);
    n.network.add("en0", 10, 20);
    EXPECT_EQ(n.refreshAfter(seconds(1)).bytesInPerSecond, 10.0);
}

TEST(NetworkMonitor, a_counter_of_32_bits_that_wraps_reads_zero_for_one_tick) {
    Network n;
    n.add("en0", {"192.0.2.1"}).bytesIn = 0xffff'ff00U;
    n.refresh();
    n.network.add("en0", 0x200, 7);
    const auto& wrapped = n.refreshAfter(seconds(1));
    EXPECT_EQ(wrapped.totalBytesIn, 0x100U);
    EXPECT_EQ(wrapped.bytesInPerSecond, 0.0);
    EXPECT_EQ(wrapped.bytesOutPerSecond, 7.0);
    n.network.add("en0", 5, 0);
    EXPECT_EQ(n.refreshAfter(seconds(1)).bytesInPerSecond, 5.0);
}

TEST(NetworkMonitor, counters_of_64_bits_that_wrap_or_jump_by_half_their_range_make_no_peak) {
    Network n;
    n.network.width = CounterWidth::bits64;
    auto& en0 = n.add("en0", {"192.0.2.1"});
    en0.bytesIn = ~std::uint64_t{0} - 9;
    en0.bytesOut = (std::uint64_t{1} << 63) + 5;
    n.refresh();
    n.network.add("en0", 30, std::uint64_t{1} << 63);
    const auto& reading = n.refreshAfter(seconds(1));
    EXPECT_EQ(reading.totalBytesIn, 20U);
    EXPECT_EQ(reading.bytesInPerSecond, 30.0);
    EXPECT_EQ(reading.bytesOutPerSecond, 0.0);
}

TEST(NetworkMonitor, a_reading_that_it_did_not_take_itself_is_no_baseline) {
    Network n;
    n.add("en0", {"192.0.2.1"}).bytesIn = 700;
    n.monitor.latest = NetworkReading{};
    EXPECT_EQ(n.refreshAfter(seconds(1)).bytesInPerSecond, std::nullopt);
    n.network.add("en0", 30, 0);
    EXPECT_EQ(n.refreshAfter(seconds(1)).bytesInPerSecond, 30.0);
}

TEST(NetworkMonitor, an_interface_that_stops_being_active_leaves_the_total_without_a_peak) {
    Network n;
    n.add("en0", {"192.0.2.1"}).bytesIn = 100;
    n.add("en5", {"192.0.2.2"}).bytesIn = 5000;
    n.refresh();
    n.network.at("en5").flags = interfaceIsUp;
    n.network.add("en0", 10, 0);
    const auto& reading = n.refreshAfter(seconds(1));
    EXPECT_EQ(reading.totalBytesIn, 110U);
    EXPECT_EQ(reading.bytesInPerSecond, 0.0);
}

TEST(NetworkMonitor, a_failing_platform_is_said_each_time_and_leaves_an_empty_reading) {
    Network n;
    n.add("en0", {"192.0.2.1"}).bytesIn = 700;
    n.refresh();
    n.bench.failures.failNext(operations::getifaddrs, 2, 12);
    for (int i = 0; i < 2; ++i) {
        const auto& reading = n.refreshAfter(seconds(1));
        EXPECT_TRUE(reading.interfaces.empty());
        EXPECT_EQ(reading.totalBytesIn, 0U);
        EXPECT_EQ(reading.primary, std::nullopt);
        EXPECT_EQ(reading.bytesInPerSecond, 0.0);
    }
    EXPECT_EQ(n.errors("getifaddrs failed: 12"), 2U);
    EXPECT_TRUE(n.monitor.previous().empty());
    EXPECT_EQ(n.refreshAfter(seconds(1)).bytesInPerSecond, 700.0);
}

TEST(NetworkMonitor, an_empty_list_is_a_failure_too) {
    Network n;
    n.add("en0", {"192.0.2.1"});
    n.bench.failures.failNext(operations::getifaddrsNull);
    EXPECT_TRUE(n.refresh().interfaces.empty());
    EXPECT_EQ(n.errors("getifaddrs failed: 0"), 1U);
}

TEST(NetworkMonitor, records_without_an_address_are_passed_over) {
    Network n;
    n.add("en0", {"192.0.2.1"});
    n.bench.failures.failNext(operations::getifaddrsNoAddress);
    EXPECT_TRUE(n.refresh().interfaces.empty());
    EXPECT_TRUE(n.bench.log.lines().empty());
}

TEST(NetworkMonitor, every_list_is_given_back_on_every_path) {
    Network n;
    n.add("en0", {"192.0.2.1", "fe80::1"});
    n.refresh();
    n.bench.failures.failNext(operations::getnameinfo);
    n.refresh();
    n.bench.failures.failNext(operations::getifaddrsNoAddress);
    n.refresh();
    n.bench.failures.failNext(operations::getifaddrs);
    n.refresh();
    EXPECT_EQ(n.bench.platform.calls("getifaddrs"), 4U);
    EXPECT_EQ(n.bench.platform.calls("freeifaddrs"), 3U);
    EXPECT_EQ(n.bench.platform.outstanding(), 0U);
}

TEST(NetworkMonitor, the_samples_are_those_of_the_last_refresh) {
    Network n;
    n.add("en0").bytesIn = 5;
    n.add("en1");
    n.refresh();
    n.network.remove("en1");
    n.add("en2").bytesOut = 6;
    n.refreshAfter(seconds(1));
    const Date now = n.bench.clock.now();
    const NetworkMonitor::Samples expected{{"en0", {5, 0, now}}, {"en2", {0, 6, now}}};
    EXPECT_EQ(n.monitor.previous(), expected);
}

TEST(NetworkMonitor, the_simulated_mac_has_a_network_that_lives) {
    TestBench bench;
    NetworkMonitor monitor(bench.platform.networkInterfaces, bench.clock);
    bench.mac.live(1);
    monitor.refresh();
    double highest = 0.0;
    for (int i = 0; i < 300; ++i) {
        bench.clock.advanceBy(seconds(1));
        monitor.refresh();
        highest = std::max(highest, *(*monitor.latest)->bytesInPerSecond);
    }
    EXPECT_GT(highest, 1e5);
    EXPECT_LT(highest, 1e9);
    const auto& reading = **monitor.latest;
    ASSERT_TRUE(reading.primary);
    EXPECT_EQ(reading.primary->bsdName, "en0");
    EXPECT_EQ(reading.primary->ipv6, "2001:db8::17");
    EXPECT_EQ(reading.interfaces.size(), 7U);
}

}  // namespace
}  // namespace vtx
