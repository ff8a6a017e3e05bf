// SPDX-License-Identifier: MIT
#include "platform/linux/RouteMessages.h"

#include <gtest/gtest.h>
#include <linux/if_arp.h>
#include <linux/if_tun.h>
#include <sys/socket.h>

#include <cerrno>

#include "linux/NetlinkBuilder.h"
#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

using netlink::Bytes;

struct Parsed {
    AnswerState state;
    std::vector<KernelLink> links;
    std::vector<KernelAddress> addresses;
};

Parsed parse(Bytes datagram) {
    Parsed parsed;
    const auto links = readAnswer(datagram, NetlinkBuilder::sequence, NetlinkBuilder::port,
                                  RTM_NEWLINK, [&](Bytes payload) {
                                      if (auto link = parseLink(payload))
                                          parsed.links.push_back(*link);
                                  });
    parsed.state = readAnswer(datagram, NetlinkBuilder::sequence, NetlinkBuilder::port, RTM_NEWADDR,
                              [&](Bytes payload) {
                                  if (auto address = parseAddress(payload))
                                      parsed.addresses.push_back(*address);
                              });
    EXPECT_EQ(links.answer, parsed.state.answer);
    return parsed;
}

std::vector<std::byte> recorded(const std::string& name) {
    const auto text = contentsOf(fixture("virtual-server-6.18/netlink/" + name));
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

std::vector<std::byte> bytesOf(std::initializer_list<int> values) {
    std::vector<std::byte> bytes;
    for (const int value : values) bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

TEST(RouteMessages, a_recorded_machines_links_are_understood) {
    const auto parsed = parse(recorded("links"));
    EXPECT_EQ(parsed.state.answer, Answer::whole);
    ASSERT_EQ(parsed.links.size(), 4U);
    EXPECT_EQ(parsed.links[0].name, "lo");
    EXPECT_EQ(parsed.links[0].hardwareType, ARPHRD_LOOPBACK);
    EXPECT_EQ(parsed.links[1].driverKind, "ifb");
    const KernelLink& eth0 = parsed.links[3];
    EXPECT_EQ(eth0.name, "eth0");
    EXPECT_EQ(eth0.index, 4U);
    EXPECT_EQ(eth0.hardwareType, ARPHRD_ETHER);
    EXPECT_EQ(eth0.flags & (IFF_UP | IFF_RUNNING), IFF_UP | IFF_RUNNING);
    EXPECT_EQ(eth0.address, bytesOf({0x02, 0xfc, 0, 0, 0, 1}));
    EXPECT_EQ(eth0.driverKind, "");
    EXPECT_FALSE(eth0.hasMaster);
}

TEST(RouteMessages, a_recorded_machines_addresses_are_understood) {
    const auto parsed = parse(recorded("addresses"));
    EXPECT_EQ(parsed.state.answer, Answer::whole);
    ASSERT_EQ(parsed.addresses.size(), 5U);
    EXPECT_EQ(parsed.addresses[1].index, 4U);
    EXPECT_FALSE(parsed.addresses[1].isIPv6);
    EXPECT_EQ(parsed.addresses[1].host[0], std::byte{192});
    EXPECT_EQ(parsed.addresses[1].host[3], std::byte{33});
    EXPECT_TRUE(parsed.addresses.back().isIPv6);
    EXPECT_TRUE(parsed.addresses.back().isLinkLocal);
}

TEST(RouteMessages, an_answer_cut_anywhere_is_never_taken_for_a_whole_one) {
    for (const auto* name : {"links", "addresses"}) {
        const auto whole = recorded(name);
        for (std::size_t end = 0; end < whole.size(); ++end)
            EXPECT_NE(parse(Bytes(whole).first(end)).state.answer, Answer::whole) << end;
    }
}

TEST(RouteMessages, a_link_has_its_driver_its_master_and_its_tunnels_form) {
    NetlinkBuilder tap;
    tap.attribute(IFLA_TUN_TYPE, bytesOf({IFF_TAP}));
    NetlinkBuilder info;
    info.text(IFLA_INFO_KIND, "tun").attribute(IFLA_INFO_DATA | NLA_F_NESTED, tap.bytes);
    NetlinkBuilder b;
    b.link(9, ARPHRD_ETHER, IFF_UP)
        .text(IFLA_IFNAME, "vnet0")
        .attribute(IFLA_MASTER, bytesOf({3, 0, 0, 0}));
    b.attribute(IFLA_LINKINFO | NLA_F_NESTED, info.bytes).done();
    const auto links = parse(b.bytes).links;
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(links[0], (KernelLink{9, "vnet0", ARPHRD_ETHER, IFF_UP, {}, "tun", true, true}));
}

TEST(RouteMessages, a_tunnel_carries_frames_only_where_it_says_so) {
    const auto carriesFrames = [](auto addInfo) {
        NetlinkBuilder info;
        addInfo(info);
        NetlinkBuilder b;
        b.link(9, ARPHRD_NONE, IFF_UP).text(IFLA_IFNAME, "tun0");
        b.attribute(IFLA_LINKINFO | NLA_F_NESTED, info.bytes).done();
        return parse(b.bytes).links.at(0).carriesFrames;
    };
    const auto withData = [](std::vector<std::byte> data, std::string_view kind = "tun") {
        return [=](NetlinkBuilder& info) {
            info.text(IFLA_INFO_KIND, kind).attribute(IFLA_INFO_DATA | NLA_F_NESTED, data);
        };
    };
    const auto typeOf = [](std::vector<std::byte> type) {
        NetlinkBuilder data;
        data.attribute(IFLA_TUN_TYPE, type);
        return data.bytes;
    };
    EXPECT_TRUE(carriesFrames(withData(typeOf(bytesOf({IFF_TAP})))));
    EXPECT_FALSE(carriesFrames(withData(typeOf(bytesOf({IFF_TUN})))));
    EXPECT_FALSE(carriesFrames(withData(typeOf({}))));
    EXPECT_FALSE(carriesFrames(withData({})));
    EXPECT_FALSE(carriesFrames(withData(typeOf(bytesOf({IFF_TAP})), "veth")));
    EXPECT_FALSE(carriesFrames([](NetlinkBuilder& info) { info.text(IFLA_INFO_KIND, "tun"); }));
    EXPECT_FALSE(carriesFrames([&](NetlinkBuilder& info) {
        info.attribute(IFLA_INFO_DATA | NLA_F_NESTED, typeOf(bytesOf({IFF_TAP})));
    }));
}

TEST(RouteMessages, links_without_a_sensible_name_or_index_are_left_out) {
    for (const auto* name : {"", ".", "..", "a/b", "/", "longer-than-15-x"}) {
        NetlinkBuilder b;
        b.link(1, ARPHRD_ETHER, 0).text(IFLA_IFNAME, name).done();
        EXPECT_TRUE(parse(b.bytes).links.empty()) << name;
    }
    for (const int index : {0, -1}) {
        NetlinkBuilder b;
        b.link(index, ARPHRD_ETHER, 0).text(IFLA_IFNAME, "eth0").done();
        EXPECT_TRUE(parse(b.bytes).links.empty()) << index;
    }
    NetlinkBuilder b;
    b.link(1, ARPHRD_ETHER, 0).done();
    EXPECT_TRUE(parse(b.bytes).links.empty());
}

TEST(RouteMessages, a_name_need_not_end_with_a_zero_byte) {
    NetlinkBuilder b;
    b.link(1, ARPHRD_ETHER, 0).attribute(IFLA_IFNAME, bytesOf({'e', 't', 'h', '0'})).done();
    EXPECT_EQ(parse(b.bytes).links.at(0).name, "eth0");
}

TEST(RouteMessages, a_link_address_beyond_every_length_is_none) {
    NetlinkBuilder b;
    b.link(1, ARPHRD_ETHER, 0)
        .text(IFLA_IFNAME, "a")
        .attribute(IFLA_ADDRESS, std::vector<std::byte>(33));
    b.link(2, ARPHRD_ETHER, 0)
        .text(IFLA_IFNAME, "b")
        .attribute(IFLA_ADDRESS, std::vector<std::byte>(32))
        .done();
    const auto links = parse(b.bytes).links;
    EXPECT_EQ(links.at(0).address.size(), 0U);
    EXPECT_EQ(links.at(1).address.size(), 32U);
}

TEST(RouteMessages, an_interface_with_a_peer_has_its_own_end) {
    NetlinkBuilder b;
    b.address(AF_INET, 5)
        .attribute(IFA_ADDRESS, bytesOf({10, 0, 0, 1}))
        .attribute(IFA_LOCAL, bytesOf({10, 0, 0, 2}));
    b.address(AF_INET, 5).attribute(IFA_ADDRESS, bytesOf({10, 0, 0, 3})).done();
    const auto addresses = parse(b.bytes).addresses;
    EXPECT_EQ(addresses.at(0).host[3], std::byte{2});
    EXPECT_EQ(addresses.at(1).host[3], std::byte{3});
}

TEST(RouteMessages, addresses_of_other_families_and_lengths_are_left_out) {
    NetlinkBuilder b;
    b.address(AF_PACKET, 1).attribute(IFA_ADDRESS, bytesOf({1, 2, 3, 4}));
    b.address(AF_INET, 1).attribute(IFA_ADDRESS, bytesOf({1, 2, 3}));
    b.address(AF_INET6, 1).attribute(IFA_ADDRESS, bytesOf({1, 2, 3, 4}));
    b.address(AF_INET, 0).attribute(IFA_ADDRESS, bytesOf({1, 2, 3, 4}));
    b.address(AF_INET, 1);
    b.message(RTM_NEWADDR, NLM_F_MULTI).raw(std::uint32_t{AF_INET});
    b.done();
    EXPECT_TRUE(parse(b.bytes).addresses.empty());
}

TEST(RouteMessages, lengths_that_lie_end_the_reading_where_they_stand) {
    for (const std::uint32_t length : {0U, 1U, 15U, 1000U, 0xffff'ffffU}) {
        NetlinkBuilder b;
        b.link(1, ARPHRD_ETHER, 0).text(IFLA_IFNAME, "eth0").end();
        const auto second = b.bytes.size();
        b.link(2, ARPHRD_ETHER, 0).text(IFLA_IFNAME, "eth1").done();
        std::memcpy(b.bytes.data() + second, &length, sizeof(length));
        const auto parsed = parse(b.bytes);
        EXPECT_EQ(parsed.links.size(), 1U) << length;
        EXPECT_EQ(parsed.state.answer, Answer::inconsistent) << length;
    }
}

TEST(RouteMessages, attributes_that_lie_about_their_length_end_their_list) {
    for (const auto length : std::initializer_list<std::uint16_t>{0, 3, 200, 0xffff}) {
        NetlinkBuilder b;
        b.link(1, ARPHRD_ETHER, 0).text(IFLA_IFNAME, "eth0");
        b.raw(nlattr{length, IFLA_ADDRESS}).raw(std::uint32_t{1}).done();
        const auto links = parse(b.bytes).links;
        ASSERT_EQ(links.size(), 1U) << length;
        EXPECT_TRUE(links[0].address.empty()) << length;
    }
}

TEST(RouteMessages, a_refusal_is_the_kernels_error) {
    for (const int type : {NLMSG_ERROR, NLMSG_DONE}) {
        NetlinkBuilder b;
        b.message(type).raw(-EPERM).end();
        EXPECT_EQ(parse(b.bytes).state.error, EPERM) << type;
    }
    for (const int absurd : {1, -4096, -2147483647}) {
        NetlinkBuilder b;
        b.message(NLMSG_ERROR).raw(absurd).end();
        EXPECT_EQ(parse(b.bytes).state.error, 0) << absurd;
    }
    NetlinkBuilder none;
    none.message(NLMSG_DONE).end();
    EXPECT_EQ(parse(none.bytes).state.error, 0);
    EXPECT_EQ(parse(none.bytes).state.answer, Answer::whole);
    NetlinkBuilder cut;
    cut.message(NLMSG_ERROR).end();
    EXPECT_EQ(parse(cut.bytes).state.answer, Answer::inconsistent);
}

TEST(RouteMessages, an_answer_during_which_the_lists_changed_is_not_consistent) {
    NetlinkBuilder b;
    b.link(1, ARPHRD_ETHER, 0).text(IFLA_IFNAME, "eth0");
    b.message(NLMSG_DONE, NLM_F_MULTI | NLM_F_DUMP_INTR).raw(0).end();
    EXPECT_EQ(parse(b.bytes).state.answer, Answer::inconsistent);
    NetlinkBuilder early;
    early.message(RTM_NEWLINK, NLM_F_MULTI | NLM_F_DUMP_INTR).done();
    EXPECT_EQ(parse(early.bytes).state.answer, Answer::inconsistent);
}

TEST(RouteMessages, what_answers_others_or_was_announced_is_told_apart) {
    NetlinkBuilder b;
    b.message(NLMSG_DONE, 0, NetlinkBuilder::sequence + 1).raw(0);
    b.message(RTM_NEWLINK, 0, 0, 0).raw(ifinfomsg{}).text(IFLA_IFNAME, "usb0");
    b.link(1, ARPHRD_ETHER, 0).text(IFLA_IFNAME, "eth0").end();
    const auto parsed = parse(b.bytes);
    EXPECT_TRUE(parsed.state.hasAnnouncement);
    EXPECT_EQ(parsed.state.answer, Answer::more);
    EXPECT_EQ(parsed.links.size(), 1U);
}

TEST(RouteMessages, announcements_are_of_links_and_addresses) {
    for (const int type : {RTM_NEWLINK, RTM_DELLINK, RTM_NEWADDR, RTM_DELADDR}) {
        NetlinkBuilder b;
        b.message(type, 0, 0, 0).raw(ifinfomsg{}).end();
        EXPECT_TRUE(announcesLinkChange(b.bytes)) << type;
    }
    NetlinkBuilder other;
    other.message(RTM_NEWROUTE).raw(ifinfomsg{}).end();
    EXPECT_FALSE(announcesLinkChange(other.bytes));
    EXPECT_FALSE(announcesLinkChange({}));
}

TEST(RouteMessages, a_search_for_radio_networks_is_no_change) {
    NetlinkBuilder b;
    b.message(RTM_NEWLINK, 0, 0, 0).raw(ifinfomsg{}).text(IFLA_IFNAME, "wlan0");
    b.attribute(IFLA_WIRELESS, bytesOf({1, 2, 3, 4})).end();
    EXPECT_FALSE(announcesLinkChange(b.bytes));
    b.message(RTM_NEWLINK, 0, 0, 0).raw(ifinfomsg{}).text(IFLA_IFNAME, "wlan0").end();
    EXPECT_TRUE(announcesLinkChange(b.bytes));
}

TEST(RouteMessages, announcements_that_are_cut_count) {
    NetlinkBuilder b;
    b.message(RTM_NEWROUTE).raw(ifinfomsg{}).end();
    b.bytes.pop_back();
    EXPECT_TRUE(announcesLinkChange(b.bytes));
    NetlinkBuilder bare;
    bare.message(RTM_NEWLINK).end();
    EXPECT_TRUE(announcesLinkChange(bare.bytes));
}

}  // namespace
}  // namespace vtx::test
