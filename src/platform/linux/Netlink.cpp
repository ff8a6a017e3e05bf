// SPDX-License-Identifier: MIT
#include "platform/linux/Netlink.h"

#include <linux/netlink.h>

#include <algorithm>

#include "base/Data.h"

namespace vtx::netlink {
namespace {

/// Takes `length` bytes and their padding off the front.
Bytes takePadded(Bytes& bytes, std::size_t length) {
    const auto taken = bytes.first(length);
    const std::size_t padded = (length + 3) & ~std::size_t{3};
    bytes = bytes.subspan(std::min(padded, bytes.size()));
    return taken;
}

/// The kernel's header at the front, which stays there.
template <class Header>
std::optional<Header> peek(Bytes bytes) {
    return take<Header>(bytes);
}

}  // namespace

std::optional<Message> takeMessage(Bytes& bytes) {
    const auto header = peek<nlmsghdr>(bytes);
    if (!header || header->nlmsg_len < sizeof(nlmsghdr) || header->nlmsg_len > bytes.size())
        return std::nullopt;
    const auto whole = takePadded(bytes, header->nlmsg_len);
    return Message{header->nlmsg_type, header->nlmsg_flags, header->nlmsg_seq, header->nlmsg_pid,
                   whole.subspan(sizeof(nlmsghdr))};
}

std::optional<Attribute> takeAttribute(Bytes& bytes) {
    const auto header = peek<nlattr>(bytes);
    if (!header || header->nla_len < sizeof(nlattr) || header->nla_len > bytes.size())
        return std::nullopt;
    const auto whole = takePadded(bytes, header->nla_len);
    return Attribute{static_cast<std::uint16_t>(header->nla_type & NLA_TYPE_MASK),
                     whole.subspan(sizeof(nlattr))};
}

std::optional<Bytes> attribute(Bytes attributes, std::uint16_t type) {
    while (const auto next = takeAttribute(attributes))
        if (next->type == type) return next->payload;
    return std::nullopt;
}

std::string_view text(Bytes bytes) {
    const auto whole = asText(bytes);
    return whole.substr(0, whole.find('\0'));
}

}  // namespace vtx::netlink
