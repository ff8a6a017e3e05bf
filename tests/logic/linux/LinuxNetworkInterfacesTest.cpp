// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxNetworkInterfaces.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <linux/if_arp.h>
#include <linux/if_tun.h>

#include <algorithm>
#include <cerrno>

#include "linux/TemporaryTree.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinkKinds.h"
#include "platform/linux/NetDevice.h"
#include "platform/simulated/ManualClock.h"
#include "telemetry/NetworkMonitor.h"

namespace vtx::test {
namespace {

TEST(NetDevice, a_line_has_what_came_in_and_went_out) {
    EXPECT_EQ(parseNetDeviceLine("  eth0: 1019739141   25046    0    0    0     0          0      "
                                 "   0   966515   11685    0    0    0     0       0          0"),
              (NetDeviceLine{"eth0", 1019739141, 966515}));
    EXPECT_EQ(parseNetDeviceLine("wlp0s20f3:18446744073709551615 2 3 4 5 6 7 8 9 "),
              (NetDeviceLine{"wlp0s20f3", ~0ULL, 9}));
}

TEST(NetDevice, headings_and_damaged_lines_are_none) {
    for (const auto* line :
         {"Inter-|   Receive                        |  Transmit",
          " face |bytes    packets errs drop fifo frame compressed multicast|bytes    packets", "",
          ":", "eth0", "eth0:", ": 1 2 3 4 5 6 7 8 9 ", "eth0: 1 2 3 4 5 6 7 8",
          "eth0: 1 2 3 4 5 6 7 8 9", "eth0: 1 2 3 4 5 6 7 8 9x", "eth0: -1 2 3 4 5 6 7 8 9 ",
          "eth0: 18446744073709551616 2 3 4 5 6 7 8 9 ", "eth0: 1 2 3 4 5 6 7 x 9 "})
        EXPECT_FALSE(parseNetDeviceLine(line)) << line;
}

TEST(KeptFile, a_short_text_stays_until_its_own_thread_reads_the_next_file) {
    const TemporaryTree tree;
    tree.write("/one", "first");
    tree.write("/two", "other");
    KeptFile one(tree.path() + "/one"), two(tree.path() + "/two");
    const auto text = one.read(KeptFile::shortBytes);
    std::thread([&] { EXPECT_EQ(two.read(KeptFile::shortBytes), "other"); }).join();
    EXPECT_EQ(text, "first");
    const auto next = two.read(64);
    ASSERT_TRUE(text && next);
    EXPECT_EQ(next->data(), text->data());
}

TEST(KeptFile, a_long_text_has_a_place_of_its_own) {
    const TemporaryTree tree;
    tree.write("/one", std::string(10'000, 'x'));
    tree.write("/two", "other");
    KeptFile one(tree.path() + "/one"), two(tree.path() + "/two");
    const auto text = one.read(KeptFile::shortBytes + 1);
    EXPECT_EQ(two.read(64), "other");
    EXPECT_EQ(text, std::string(KeptFile::shortBytes + 1, 'x'));
}

TEST(KeptFile, gives_a_file_whole_whatever_its_size_and_follows_it) {
    const TemporaryTree tree;
    KeptFile file(tree.path() + "/file");
    EXPECT_FALSE(file.readWhole(100'000));
    for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 50'000U, 10U}) {
        tree.write("/file", std::string(size, 'x'));
        const auto text = file.readWhole(100'000);
        ASSERT_TRUE(text);
        EXPECT_EQ(text->size(), size);
    }
    tree.write("/file", std::string(100'001, 'x'));
    EXPECT_FALSE(file.readWhole(100'000));
    tree.write("/file", "again");
    EXPECT_EQ(file.readWhole(100'000), "again");
}

struct KindCase {
    const char* what;
    LinkKind kind;
    KernelLink link;
    LinkFacts facts;
};

KernelLink hardware(int type, std::string driverKind = {}, bool hasMaster = false,
                    bool carriesFrames = false) {
    KernelLink link;
    link.index = 1;
    link.name = "x";
    link.hardwareType = static_cast<std::uint16_t>(type);
    link.driverKind = std::move(driverKind);
    link.hasMaster = hasMaster;
    link.carriesFrames = carriesFrames;
    return link;
}

TEST(LinkKinds, are_what_the_kernel_says_whatever_the_name) {
    const LinkFacts none;
    const LinkFacts device{"", false, true};
    const KindCase table[] = {
        {"loopback", LinkKind::loopback, hardware(ARPHRD_LOOPBACK), none},
        {"network card", LinkKind::ethernet, hardware(ARPHRD_ETHER), device},
        {"port of a bridge", LinkKind::ethernet, hardware(ARPHRD_ETHER, "", true), device},
        {"wireless card", LinkKind::wifi, hardware(ARPHRD_ETHER), {"wlan", false, true}},
        {"wireless of an old kernel", LinkKind::wifi, hardware(ARPHRD_ETHER), {"", true, true}},
        {"wireless monitor", LinkKind::wifi, hardware(ARPHRD_IEEE80211_RADIOTAP), device},
        {"modem", LinkKind::cellular, hardware(ARPHRD_RAWIP), {"wwan", false, true}},
        {"modem with frames", LinkKind::cellular, hardware(ARPHRD_ETHER), {"wwan", false, true}},
        {"modem session", LinkKind::cellular, hardware(ARPHRD_NONE, "wwan"), none},
        {"tunnel of packets", LinkKind::vpn, hardware(ARPHRD_NONE, "tun"), none},
        {"tunnel of frames", LinkKind::vpn, hardware(ARPHRD_ETHER, "tun", false, true), none},
        {"virtual machine", LinkKind::other, hardware(ARPHRD_ETHER, "tun", true, true), none},
        {"wireguard",
         LinkKind::vpn,
         hardware(ARPHRD_NONE, "wireguard"),
         {"wireguard", false, false}},
        {"ppp", LinkKind::vpn, hardware(ARPHRD_PPP), {"ppp", false, false}},
        {"ipsec", LinkKind::vpn, hardware(ARPHRD_NONE, "xfrm"), none},
        {"container cable", LinkKind::other, hardware(ARPHRD_ETHER, "veth", true), none},
        {"bridge", LinkKind::other, hardware(ARPHRD_ETHER, "bridge"), {"bridge", false, false}},
        {"vlan", LinkKind::other, hardware(ARPHRD_ETHER, "vlan"), {"vlan", false, false}},
        {"bond", LinkKind::other, hardware(ARPHRD_ETHER, "bond"), {"bond", false, false}},
        {"dummy", LinkKind::other, hardware(ARPHRD_ETHER, "dummy"), none},
        {"tunnel in the clear", LinkKind::other, hardware(ARPHRD_SIT, "sit"), none},
        {"infiniband", LinkKind::other, hardware(ARPHRD_INFINIBAND), device},
        {"frames without hardware", LinkKind::other, hardware(ARPHRD_ETHER), none}};
    for (const auto& [what, kind, link, facts] : table)
        EXPECT_EQ(kindOf(link, facts), kind) << what;
}

TEST(LinkKinds, the_device_type_is_a_line_of_its_own) {
    EXPECT_EQ(ueventValue("DEVTYPE=wlan\nINTERFACE=wlan0\nIFINDEX=3\n", "DEVTYPE"), "wlan");
    EXPECT_EQ(ueventValue("INTERFACE=DEVTYPE=x\nDEVTYPE=wwan", "DEVTYPE"), "wwan");
    for (const auto* text :
         {"", "DEVTYPE", "DEVTYPE=", "XDEVTYPE=wlan\n", "devtype=wlan\n", "DEVTYPES=wlan\n"})
        EXPECT_EQ(ueventValue(text, "DEVTYPE"), "") << text;
}

TEST(LinkKinds, facts_come_from_the_interfaces_folder) {
    const TemporaryTree tree;
    tree.write("/sys/class/net/wlan0/uevent", "DEVTYPE=wlan\nINTERFACE=wlan0\n");
    tree.write("/sys/class/net/wlan0/phy80211/name", "phy0\n");
    tree.write("/sys/class/net/eth0/device/vendor", "0x1af4\n");
    const LinuxRoot root(tree.path());
    EXPECT_EQ(readLinkFacts(root, "wlan0").deviceType, "wlan");
    EXPECT_TRUE(readLinkFacts(root, "wlan0").isWireless);
    EXPECT_FALSE(readLinkFacts(root, "wlan0").hasDevice);
    EXPECT_TRUE(readLinkFacts(root, "eth0").hasDevice);
    EXPECT_FALSE(readLinkFacts(root, "eth0").isWireless);
    tree.write("/sys/class/net/wlan1/wireless/status", "0x0\n");
    EXPECT_TRUE(readLinkFacts(root, "wlan1").isWireless) << "an older driver's";
    EXPECT_EQ(readLinkFacts(root, "none").deviceType, "");
}

/// The kernel's tables as a test has them.
struct FakeRoutes final : RouteSource {
    bool hasChanged() override { return std::exchange(changed, false); }
    int read(RouteTable& into) override {
        ++reads;
        if (error != 0) return error;
        into = table;
        return 0;
    }
    KernelLink& add(const std::string& name, int type, std::string driverKind = {}) {
        KernelLink link = hardware(type, std::move(driverKind));
        link.index = static_cast<std::uint32_t>(table.links.size() + 1);
        link.name = name;
        link.flags = IFF_UP | IFF_RUNNING;
        changed = true;
        return table.links.emplace_back(std::move(link));
    }
    void address(const std::string& figures) {
        KernelAddress address;
        address.index = static_cast<std::uint32_t>(table.links.size());
        address.isIPv6 = figures.find(':') != std::string::npos;
        address.isLinkLocal = figures.starts_with("fe80");
        ::inet_pton(address.isIPv6 ? AF_INET6 : AF_INET, figures.c_str(), address.host.data());
        table.addresses.push_back(address);
    }
    RouteTable table;
    bool changed = true;
    int error = 0;
    int reads = 0;
};

struct LinuxNetwork : testing::Test {
    void counters(const std::vector<std::tuple<std::string, std::uint64_t, std::uint64_t>>& all) {
        std::string text = "Inter-|   Receive |  Transmit\n face |bytes    packets\n";
        for (const auto& [name, in, out] : all)
            text += "  " + name + ": " + std::to_string(in) + " 1 0 0 0 0 0 0 " +
                    std::to_string(out) + " 1 0 0 0 0 0 0\n";
        tree.write("/proc/net/dev", text);
    }
    const NetworkReading& refresh() {
        clock.advanceBy(seconds(1));
        monitor.refresh();
        return **monitor.latest;
    }

    TemporaryTree tree;
    LinuxRoot root{tree.path()};
    ManualClock clock;
    FakeRoutes* routes = new FakeRoutes;
    LinuxNetworkInterfaces port{root, std::unique_ptr<RouteSource>(routes)};
    NetworkMonitor monitor{port, clock};
};

TEST_F(LinuxNetwork, a_laptop_with_everything_shows_its_wireless_card_first) {
    routes->add("lo", ARPHRD_LOOPBACK).flags = IFF_UP | IFF_LOOPBACK | IFF_RUNNING;
    routes->address("127.0.0.1");
    routes->add("enp1s0", ARPHRD_ETHER).address = {std::byte{2}, {}, {}, {}, {}, std::byte{1}};
    routes->address("192.0.2.7");
    routes->add("wlp0s20f3", ARPHRD_ETHER);
    routes->address("192.0.2.8");
    routes->address("fe80::8");
    routes->address("2001:db8::8");
    routes->add("wg0", ARPHRD_NONE, "wireguard");
    routes->address("10.8.0.2");
    routes->add("docker0", ARPHRD_ETHER, "bridge").flags = IFF_UP;
    routes->address("172.17.0.1");
    tree.write("/sys/class/net/enp1s0/device/vendor", "1\n");
    tree.write("/sys/class/net/wlp0s20f3/uevent", "DEVTYPE=wlan\n");
    counters({{"lo", 1, 1},
              {"enp1s0", 20, 2},
              {"wlp0s20f3", 300, 3},
              {"wg0", 4000, 4},
              {"docker0", 50000, 5}});
    const auto& reading = refresh();
    ASSERT_EQ(reading.interfaces.size(), 5U);
    EXPECT_EQ(reading.interfaces[0].bsdName, "docker0");
    EXPECT_FALSE(reading.interfaces[0].isActive);
    EXPECT_EQ(reading.interfaces[1].kind, LinkKind::ethernet);
    EXPECT_EQ(reading.interfaces[1].macAddress, "02:00:00:00:00:01");
    EXPECT_EQ(reading.interfaces[2].kind, LinkKind::loopback);
    EXPECT_EQ(reading.interfaces[3].kind, LinkKind::vpn);
    EXPECT_EQ(reading.totalBytesIn, 4321U);
    ASSERT_TRUE(reading.primary);
    EXPECT_EQ(reading.primary->bsdName, "wlp0s20f3");
    EXPECT_EQ(reading.primary->ipv4, "192.0.2.8");
    EXPECT_EQ(reading.primary->ipv6, "2001:db8::8");
}

TEST_F(LinuxNetwork, a_tick_reads_the_counters_alone) {
    routes->add("eth0", ARPHRD_ETHER);
    routes->address("192.0.2.7");
    counters({{"eth0", 1000, 100}});
    refresh();
    counters({{"eth0", 6'000'000'000, 150}});
    const auto& reading = refresh();
    EXPECT_EQ(reading.bytesInPerSecond, 5'999'999'000.0);
    EXPECT_EQ(reading.bytesOutPerSecond, 50.0);
    EXPECT_EQ(routes->reads, 1);
}

TEST_F(LinuxNetwork, an_announced_change_is_read_once) {
    routes->add("eth0", ARPHRD_ETHER);
    counters({{"eth0", 1, 1}});
    EXPECT_FALSE(refresh().interfaces[0].isActive);
    routes->address("192.0.2.7");
    EXPECT_FALSE(refresh().interfaces[0].isActive);
    routes->changed = true;
    EXPECT_TRUE(refresh().interfaces[0].isActive);
    refresh();
    EXPECT_EQ(routes->reads, 2);
}

TEST_F(LinuxNetwork, an_interface_that_has_counters_before_it_was_announced_is_asked_for) {
    routes->add("eth0", ARPHRD_ETHER);
    counters({{"eth0", 1, 1}});
    refresh();
    routes->add("usb0", ARPHRD_ETHER);
    routes->changed = false;
    counters({{"eth0", 1, 1}, {"usb0", 77, 7}});
    EXPECT_EQ(refresh().interfaces.at(1).bytesIn, 77U);
    EXPECT_EQ(routes->reads, 2);
}

TEST_F(LinuxNetwork, an_interface_that_went_before_it_was_announced_is_not_listed) {
    routes->add("eth0", ARPHRD_ETHER);
    routes->add("usb0", ARPHRD_ETHER);
    counters({{"usb0", 7, 7}, {"eth0", 1, 1}});
    EXPECT_EQ(refresh().interfaces.size(), 2U);
    routes->table.links.pop_back();
    counters({{"eth0", 1, 1}});
    EXPECT_EQ(refresh().interfaces.size(), 1U);
}

TEST_F(LinuxNetwork, without_counters_or_without_the_kernels_answer_there_is_an_error) {
    routes->add("eth0", ARPHRD_ETHER);
    EXPECT_EQ(port.getifaddrs().error, EIO);
    counters({{"eth0", 1, 1}});
    EXPECT_EQ(port.getifaddrs().error, 0);
    routes->error = EPERM;
    routes->changed = true;
    EXPECT_EQ(port.getifaddrs().error, EPERM);
    EXPECT_EQ(port.getifaddrs().error, EPERM);
    routes->error = 0;
    EXPECT_EQ(port.getifaddrs().list.records().size(), 1U);
}

TEST_F(LinuxNetwork, a_kernel_that_is_busy_with_changes_leaves_the_last_answer) {
    routes->add("eth0", ARPHRD_ETHER);
    counters({{"eth0", 5, 5}});
    refresh();
    for (const int error : {EINTR, EAGAIN, ENOBUFS}) {
        routes->error = error;
        routes->changed = true;
        EXPECT_EQ(port.getifaddrs().list.records().size(), 1U) << error;
    }
}

TEST_F(LinuxNetwork, confined_addresses_are_said_with_their_zone_and_shown_without) {
    routes->add("eth0", ARPHRD_ETHER);
    routes->address("fe80::1");
    counters({{"eth0", 5, 5}});
    const auto answer = port.getifaddrs();
    EXPECT_EQ(port.getnameinfo(*answer.list.records()[1].address), "fe80::1%eth0");
    EXPECT_FALSE(port.getnameinfo(*answer.list.records()[0].address));
    EXPECT_EQ(refresh().interfaces[0].ipv6, "fe80::1");
}

TEST_F(LinuxNetwork, an_address_whose_interface_is_not_there_is_left_out) {
    routes->add("eth0", ARPHRD_ETHER);
    routes->address("192.0.2.1");
    routes->table.addresses[0].index = 99;
    counters({{"eth0", 5, 5}});
    EXPECT_EQ(port.getifaddrs().list.records().size(), 1U);
}

TEST_F(LinuxNetwork, counters_of_a_hundred_interfaces_span_more_than_a_page) {
    std::vector<std::tuple<std::string, std::uint64_t, std::uint64_t>> all;
    for (int i = 0; i < 100; ++i) {
        const std::string name = "veth" + std::to_string(i);
        routes->add(name, ARPHRD_ETHER, "veth");
        all.emplace_back(name, 1'000'000'000'000'000'000U + static_cast<unsigned>(i), i);
    }
    std::ranges::reverse(all);
    counters(all);
    const auto& interfaces = refresh().interfaces;
    ASSERT_EQ(interfaces.size(), 100U);
    for (const auto& each : interfaces)
        EXPECT_EQ("veth" + std::to_string(each.bytesOut), each.bsdName);
}

TEST(RouteSocket, reads_the_running_machine_and_tells_of_a_change_at_first_alone) {
    RouteSocket socket;
    EXPECT_TRUE(socket.hasChanged());
    RouteTable table;
    const int error = socket.read(table);
    if (error != 0) GTEST_SKIP() << "this machine refuses the socket: " << error;
    const auto loopback =
        std::ranges::find(table.links, ARPHRD_LOOPBACK, &KernelLink::hardwareType);
    ASSERT_NE(loopback, table.links.end());
    for (const auto& address : table.addresses)
        EXPECT_NE(std::ranges::find(table.links, address.index, &KernelLink::index),
                  table.links.end());
}

}  // namespace
}  // namespace vtx::test
