// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/Netlink.h"

namespace vtx {

/// What the kernel tells of a network interface besides its counters.
struct KernelLink {
    std::uint32_t index = 0;  ///< never 0
    std::string name;
    std::uint16_t hardwareType = 0;  ///< ARPHRD_*
    std::uint32_t flags = 0;         ///< IFF_*
    std::vector<std::byte> address;  ///< of the link layer; empty where there is none
    std::string driverKind;          ///< "wireguard", "bridge"; empty for a device of hardware
    bool hasMaster = false;          ///< is a port of a bridge or of something like it
    bool carriesFrames = false;      ///< of kind "tun": whole frames, where others carry packets

    friend bool operator==(const KernelLink&, const KernelLink&) = default;
};

/// One address of an interface.
struct KernelAddress {
    std::uint32_t index = 0;  ///< of its interface
    bool isIPv6 = false;
    bool isLinkLocal = false;
    std::array<std::byte, 16> host{};  ///< 4 bytes of them for IPv4

    friend bool operator==(const KernelAddress&, const KernelAddress&) = default;
};

/// The payload of one RTM_NEWLINK. Absent for one without a name or an index.
[[nodiscard]] std::optional<KernelLink> parseLink(netlink::Bytes payload);
/// The payload of one RTM_NEWADDR. Absent for another family and where the address is of another
/// length. An interface with a peer has its own end of the two.
[[nodiscard]] std::optional<KernelAddress> parseAddress(netlink::Bytes payload);

/// How much of the answer to a request a datagram was.
enum class Answer {
    more,         ///< the rest comes with the next datagram
    whole,        ///< it ends here
    inconsistent  ///< it ends here, and the kernel's lists changed meanwhile, or bytes are missing
};
/// The errno value with which the kernel refused, or how the answer goes on.
struct AnswerState {
    Answer answer = Answer::more;
    int error = 0;
    /// Something else was announced in the same datagram.
    bool hasAnnouncement = false;
};

/// Goes through one datagram for the answer to the request of a number on a socket of a port, and
/// hands the payload of each of its messages of a type to `handle`.
template <class Handle>
[[nodiscard]] AnswerState readAnswer(netlink::Bytes datagram, std::uint32_t sequence,
                                     std::uint32_t port, std::uint16_t type, Handle handle);

/// What stands at the end of an answer or instead of one: its state, or nothing for another type.
[[nodiscard]] std::optional<AnswerState> endOfAnswer(const netlink::Message& message);
/// Whether the kernel's lists changed while it answered.
[[nodiscard]] bool wasInterrupted(const netlink::Message& message);

/// Whether a datagram of announcements is of what interfaces there are, of their state or of their
/// addresses. One that is not understood whole counts, and one that tells of nothing but a radio
/// does not.
[[nodiscard]] bool announcesLinkChange(netlink::Bytes datagram);

template <class Handle>
AnswerState readAnswer(netlink::Bytes datagram, std::uint32_t sequence, std::uint32_t port,
                       std::uint16_t type, Handle handle) {
    AnswerState state;
    bool isInterrupted = false;
    while (const auto message = netlink::takeMessage(datagram)) {
        if (message->port != port || message->sequence != sequence) {
            state.hasAnnouncement = true;
            continue;
        }
        isInterrupted = isInterrupted || wasInterrupted(*message);
        if (auto end = endOfAnswer(*message)) {
            end->hasAnnouncement = state.hasAnnouncement;
            if (isInterrupted) end->answer = Answer::inconsistent;
            return *end;
        }
        if (message->type == type) handle(message->payload);
    }
    if (!datagram.empty() || isInterrupted) state.answer = Answer::inconsistent;
    return state;
}

}  // namespace vtx
