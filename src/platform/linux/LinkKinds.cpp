// SPDX-License-Identifier: MIT
#include "platform/linux/LinkKinds.h"

#include <linux/if_arp.h>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

bool isOneOf(std::string_view word, auto... words) { return ((word == words) || ...); }

bool isTunnel(const KernelLink& link) {
    // One with frames that hangs on a bridge is a virtual machine's cable.
    if (link.driverKind == "tun") return !(link.carriesFrames && link.hasMaster);
    return link.hardwareType == ARPHRD_PPP ||
           isOneOf(link.driverKind, "wireguard", "ovpn", "ppp", "xfrm", "vti", "vti6");
}

bool isWireless(const KernelLink& link, const LinkFacts& facts) {
    return facts.deviceType == "wlan" || facts.isWireless ||
           (link.hardwareType >= ARPHRD_IEEE80211 &&
            link.hardwareType <= ARPHRD_IEEE80211_RADIOTAP);
}

}  // namespace

std::string_view ueventValue(std::string_view uevent, std::string_view key) {
    while (!uevent.empty()) {
        const auto line = takeLine(uevent);
        if (line.size() > key.size() && line.starts_with(key) && line[key.size()] == '=')
            return line.substr(key.size() + 1);
    }
    return {};
}

LinkFacts readLinkFacts(const LinuxRoot& root, const std::string& name) {
    const std::string folder = "/sys/class/net/" + name;
    LinkFacts facts;
    if (const auto uevent = root.read(folder + "/uevent"))
        facts.deviceType = ueventValue(*uevent, "DEVTYPE");
    facts.isWireless = root.exists(folder + "/wireless") || root.exists(folder + "/phy80211");
    facts.hasDevice = root.exists(folder + "/device");
    return facts;
}

LinkKind kindOf(const KernelLink& link, const LinkFacts& facts) {
    if (link.hardwareType == ARPHRD_LOOPBACK) return LinkKind::loopback;
    if (facts.deviceType == "wwan" || isOneOf(link.driverKind, "wwan", "rmnet"))
        return LinkKind::cellular;
    if (isWireless(link, facts)) return LinkKind::wifi;
    if (isTunnel(link)) return LinkKind::vpn;
    if (link.hardwareType == ARPHRD_ETHER && link.driverKind.empty() && facts.hasDevice)
        return LinkKind::ethernet;
    return LinkKind::other;
}

}  // namespace vtx
