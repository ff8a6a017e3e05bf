// SPDX-License-Identifier: MIT
#include "platform/linux/RouteMessages.h"

#include <linux/if_addr.h>
#include <linux/if_link.h>
#include <linux/if_tun.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <algorithm>

namespace vtx {
namespace {

using netlink::Bytes;

/// Longer ones exist only in damaged messages: the kernel has no room for them.
constexpr std::size_t longestLinkAddress = 32;
constexpr std::size_t longestName = 15;

bool isName(std::string_view name) {
    return !name.empty() && name.size() <= longestName && name != "." && name != ".." &&
           name.find('/') == std::string_view::npos;
}

void takeDriver(Bytes info, KernelLink& link) {
    if (const auto kind = netlink::attribute(info, IFLA_INFO_KIND))
        link.driverKind = netlink::text(*kind);
    const auto data = netlink::attribute(info, IFLA_INFO_DATA);
    if (link.driverKind != "tun" || !data) return;
    const auto type = netlink::attribute(*data, IFLA_TUN_TYPE);
    link.carriesFrames = type && !type->empty() && std::to_integer<int>((*type)[0]) == IFF_TAP;
}

}  // namespace

std::optional<KernelLink> parseLink(Bytes payload) {
    const auto header = netlink::take<ifinfomsg>(payload);
    if (!header || header->ifi_index <= 0) return std::nullopt;
    KernelLink link;
    link.index = static_cast<std::uint32_t>(header->ifi_index);
    link.hardwareType = header->ifi_type;
    link.flags = header->ifi_flags;
    while (const auto next = netlink::takeAttribute(payload)) {
        if (next->type == IFLA_IFNAME) link.name = netlink::text(next->payload);
        if (next->type == IFLA_ADDRESS && next->payload.size() <= longestLinkAddress)
            link.address.assign(next->payload.begin(), next->payload.end());
        if (next->type == IFLA_MASTER) link.hasMaster = true;
        if (next->type == IFLA_LINKINFO) takeDriver(next->payload, link);
    }
    return isName(link.name) ? std::optional(std::move(link)) : std::nullopt;
}

std::optional<KernelAddress> parseAddress(Bytes payload) {
    const auto header = netlink::take<ifaddrmsg>(payload);
    if (!header || header->ifa_index == 0) return std::nullopt;
    if (header->ifa_family != AF_INET && header->ifa_family != AF_INET6) return std::nullopt;
    KernelAddress address;
    address.index = header->ifa_index;
    address.isIPv6 = header->ifa_family == AF_INET6;
    address.isLinkLocal = header->ifa_scope == RT_SCOPE_LINK;
    auto host = netlink::attribute(payload, IFA_LOCAL);
    if (!host) host = netlink::attribute(payload, IFA_ADDRESS);
    const std::size_t length = address.isIPv6 ? 16 : 4;
    if (!host || host->size() != length) return std::nullopt;
    std::ranges::copy(*host, address.host.begin());
    return address;
}

std::optional<AnswerState> endOfAnswer(const netlink::Message& message) {
    auto payload = message.payload;
    if (message.type != NLMSG_DONE && message.type != NLMSG_ERROR) return std::nullopt;
    // Both carry an errno value below zero, or zero; the first one may carry nothing.
    const auto code = netlink::take<std::int32_t>(payload);
    AnswerState state{Answer::whole, 0, false};
    if (code && *code < 0 && *code > -4096) state.error = -*code;
    if (message.type == NLMSG_ERROR && !code) state.answer = Answer::inconsistent;
    return state;
}

bool wasInterrupted(const netlink::Message& message) {
    return (message.flags & NLM_F_DUMP_INTR) != 0;
}

bool announcesLinkChange(Bytes datagram) {
    while (auto message = netlink::takeMessage(datagram)) {
        const auto type = message->type;
        if (type == RTM_NEWADDR || type == RTM_DELADDR || type == RTM_DELLINK) return true;
        if (type != RTM_NEWLINK) continue;
        // A wireless driver announces each search for networks and each of its results.
        auto attributes = message->payload;
        if (!netlink::take<ifinfomsg>(attributes)) return true;
        if (!netlink::attribute(attributes, IFLA_WIRELESS)) return true;
    }
    return !datagram.empty();
}

}  // namespace vtx
