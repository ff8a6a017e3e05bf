// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/NetworkInterfaces.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/RouteMessages.h"

namespace vtx {

/// What sysfs says of an interface.
struct LinkFacts {
    std::string deviceType;   ///< `DEVTYPE` of its `uevent`: "wlan", "wwan", "bridge"; often empty
    bool isWireless = false;  ///< has a folder of the wireless stack
    bool hasDevice = false;   ///< there is hardware behind it, if only a hypervisor's
};

/// Reads /sys/class/net/NAME.
[[nodiscard]] LinkFacts readLinkFacts(const LinuxRoot& root, const std::string& name);

/// The value behind "key=" on a line of its own; empty where there is none.
[[nodiscard]] std::string_view ueventValue(std::string_view uevent, std::string_view key);

/// The kind by the kernel's own words. Names mean nothing here: anybody may give any.
///
/// | kind | what the kernel says |
/// |---|---|
/// | loopback | ARPHRD_LOOPBACK |
/// | cellular | device type or driver "wwan", "rmnet" |
/// | wifi | device type "wlan", a wireless folder, ARPHRD_IEEE80211 and those behind it |
/// | vpn | drivers "wireguard", "tun", "ovpn", "ppp", "xfrm", "vti", "vti6"; ARPHRD_PPP |
/// | ethernet | ARPHRD_ETHER with hardware behind it and without a driver kind |
/// | other | all else: bridges, bonds, virtual cables, tunnels in the clear |
///
/// A "tun" with whole frames that is a port of a bridge is a virtual machine's cable and no vpn.
[[nodiscard]] LinkKind kindOf(const KernelLink& link, const LinkFacts& facts);

}  // namespace vtx
