// SPDX-License-Identifier: MIT
#include "telemetry/NetworkReading.h"

#include <algorithm>

namespace vtx {

using Kind = NetworkInterfaceSnapshot::Kind;

std::string_view rawValue(Kind kind) {
    switch (kind) {
        case Kind::wifi:
            return "wifi";
        case Kind::ethernet:
            return "ethernet";
        case Kind::loopback:
            return "loopback";
        case Kind::cellular:
            return "cellular";
        case Kind::vpn:
            return "vpn";
        case Kind::other:
            break;
    }
    return "other";
}

Kind kindByName(std::string_view bsdName) {
    if (bsdName == "lo0") return Kind::loopback;
    for (const auto* tunnel : {"utun", "ppp", "ipsec"})
        if (bsdName.starts_with(tunnel)) return Kind::vpn;
    if (bsdName.starts_with("pdp_ip")) return Kind::cellular;
    // The first one is the wireless one on every portable machine.
    if (bsdName == "en0") return Kind::wifi;
    return bsdName.starts_with("en") ? Kind::ethernet : Kind::other;
}

std::optional<NetworkInterfaceSnapshot> pickPrimary(
    std::span<const NetworkInterfaceSnapshot> interfaces) {
    const auto firstActive = [interfaces](auto isWanted) {
        return std::ranges::find_if(interfaces, [isWanted](const NetworkInterfaceSnapshot& each) {
            return each.isActive && isWanted(each.kind);
        });
    };
    for (const Kind wanted : {Kind::wifi, Kind::ethernet, Kind::cellular, Kind::vpn}) {
        const auto found = firstActive([wanted](Kind kind) { return kind == wanted; });
        if (found != interfaces.end()) return *found;
    }
    const auto found = firstActive([](Kind kind) { return kind != Kind::loopback; });
    return found == interfaces.end() ? std::nullopt : std::optional(*found);
}

double rateBetween(std::uint64_t previousTotal, std::uint64_t total, double intervalSeconds) {
    // As a signed number, so that what fell shows as a fall and never as a peak.
    const auto rise = static_cast<std::int64_t>(total - previousTotal);
    return rise > 0 ? static_cast<double>(rise) / intervalSeconds : 0.0;
}

}  // namespace vtx
