// SPDX-License-Identifier: MIT
#include "platform/linux/RouteSocket.h"

#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <cerrno>
#include <utility>

namespace vtx {
namespace {

/// The kernel writes no larger datagrams into an answer.
constexpr std::size_t bufferBytes = 32 << 10;
/// More than wait in a socket of the usual size; those beyond are taken the next time.
constexpr int datagramsAtOnce = 4096;
constexpr int attempts = 3;

struct Request {
    nlmsghdr header;
    ifinfomsg body;
    nlattr attribute;
    std::uint32_t mask;
};

}  // namespace

int RouteSocket::open() {
    if (socket_) return 0;
    FileDescriptor made(
        ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE));
    if (!made) return errno;
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    address.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_IFADDR | RTMGRP_IPV6_IFADDR;
    socklen_t size = sizeof(address);
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(made.get(), generic, size) != 0) return errno;
    if (::getsockname(made.get(), generic, &size) != 0) return errno;
    port_ = address.nl_pid;
    buffer_.resize(bufferBytes);
    socket_ = std::move(made);
    arrivals_ = ArrivalCheck(socket_);
    hasChanged_ = true;
    return 0;
}

int RouteSocket::receive() {
    sockaddr_nl sender{};
    iovec part{buffer_.data(), buffer_.size()};
    msghdr message{};
    message.msg_name = &sender;
    message.msg_namelen = sizeof(sender);
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    ssize_t got = 0;
    do got = ::recvmsg(socket_.get(), &message, MSG_DONTWAIT);
    while (got < 0 && errno == EINTR);
    if (got < 0) return -errno;
    // Only the kernel knows, whoever else writes here.
    if (message.msg_namelen != sizeof(sender) || sender.nl_pid != 0) return 0;
    if ((message.msg_flags & MSG_TRUNC) != 0) return -EMSGSIZE;
    return static_cast<int>(got);
}

bool RouteSocket::hasChanged() {
    if (open() != 0) return true;
    if (!arrivals_.mayReceive()) return std::exchange(hasChanged_, false);
    for (int taken = 0; taken < datagramsAtOnce; ++taken) {
        const int got = receive();
        if (got == -EAGAIN) break;
        if (got == -ENOBUFS || got == -EMSGSIZE) {
            hasChanged_ = true;
        } else if (got < 0) {
            socket_.reset();
            return true;
        } else if (announcesLinkChange(
                       netlink::Bytes(buffer_).first(static_cast<std::size_t>(got)))) {
            hasChanged_ = true;
        }
    }
    return std::exchange(hasChanged_, false);
}

int RouteSocket::ask(std::uint16_t type, std::uint8_t family) {
    Request request{};
    request.header.nlmsg_len = sizeof(request);
    request.header.nlmsg_type = type;
    request.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    request.header.nlmsg_seq = ++sequence_;
    request.body.ifi_family = family;
    // Counters are read elsewhere.
    request.attribute = {sizeof(request.attribute) + sizeof(request.mask), IFLA_EXT_MASK};
    request.mask = RTEXT_FILTER_SKIP_STATS;
    // A request for addresses ends where that for links has more.
    if (type == RTM_GETADDR) request.header.nlmsg_len = NLMSG_LENGTH(sizeof(ifaddrmsg));
    ssize_t sent = 0;
    do sent = ::send(socket_.get(), &request, request.header.nlmsg_len, 0);
    while (sent < 0 && errno == EINTR);
    return sent < 0 ? errno : 0;
}

template <class Handle>
int RouteSocket::dump(std::uint16_t request, std::uint16_t type, const Handle& handle) {
    if (const int error = ask(request, AF_UNSPEC)) return error;
    for (int taken = 0; taken < datagramsAtOnce; ++taken) {
        const int got = receive();
        if (got < 0) return -got;
        const auto datagram = netlink::Bytes(buffer_).first(static_cast<std::size_t>(got));
        const AnswerState state = readAnswer(datagram, sequence_, port_, type, handle);
        if (state.hasAnnouncement) hasChanged_ = true;
        if (state.error != 0) return state.error;
        if (state.answer == Answer::inconsistent) return EINTR;
        if (state.answer == Answer::whole) return 0;
    }
    return EINTR;
}

int RouteSocket::read(RouteTable& into) {
    int error = 0;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if ((error = open()) != 0) return error;
        into.links.clear();
        into.addresses.clear();
        error = dump(RTM_GETLINK, RTM_NEWLINK, [&into](netlink::Bytes payload) {
            if (auto link = parseLink(payload)) into.links.push_back(*std::move(link));
        });
        if (error == 0) {
            error = dump(RTM_GETADDR, RTM_NEWADDR, [&into](netlink::Bytes payload) {
                if (const auto address = parseAddress(payload)) into.addresses.push_back(*address);
            });
        }
        if (error == 0) return 0;
        // What is left of the answer must not be taken for that to the next request.
        socket_.reset();
    }
    hasChanged_ = true;
    return error;
}

}  // namespace vtx
