// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "platform/NetworkInterfaces.h"

namespace vtx {

/// One interface, identified by its name.
struct NetworkInterfaceSnapshot {
    using Kind = LinkKind;

    std::string bsdName;  ///< the kernel's
    Kind kind = Kind::other;
    bool isActive = false;                  ///< up and running, and with an address
    std::optional<std::string> ipv4;        ///< in figures
    std::optional<std::string> ipv6;        ///< in figures, without a zone
    std::optional<std::string> macAddress;  ///< six pairs of lower-case hex digits and colons
    std::uint64_t bytesIn = 0;              ///< the kernel's counter
    std::uint64_t bytesOut = 0;

    friend bool operator==(const NetworkInterfaceSnapshot&,
                           const NetworkInterfaceSnapshot&) = default;
};

/// The name of a kind, equal to that of its case.
[[nodiscard]] std::string_view rawValue(NetworkInterfaceSnapshot::Kind kind);

/// What the interface's name says of its kind, on a platform that says nothing else.
[[nodiscard]] NetworkInterfaceSnapshot::Kind kindByName(std::string_view bsdName);

/// The interface to show first: of the active ones the first wireless one, else the first wired,
/// cellular, tunnelled, and at last any that is no loopback.
[[nodiscard]] std::optional<NetworkInterfaceSnapshot> pickPrimary(
    std::span<const NetworkInterfaceSnapshot> interfaces);

/// One reading of all interfaces. Both rates are there or neither is.
struct NetworkReading {
    std::vector<NetworkInterfaceSnapshot> interfaces;  ///< by name
    std::optional<double> bytesInPerSecond;
    std::optional<double> bytesOutPerSecond;
    std::uint64_t totalBytesIn = 0;  ///< over the active interfaces, of any kind
    std::uint64_t totalBytesOut = 0;
    std::optional<NetworkInterfaceSnapshot> primary;
    Date timestamp;

    friend bool operator==(const NetworkReading&, const NetworkReading&) = default;
};

/// Bytes per second between two totals; 0 where the total fell, as it does when a counter wraps or
/// an interface stops being active.
[[nodiscard]] double rateBetween(std::uint64_t previousTotal, std::uint64_t total,
                                 double intervalSeconds);

}  // namespace vtx
