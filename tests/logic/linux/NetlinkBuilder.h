// SPDX-License-Identifier: MIT
#pragma once

#include <linux/if_addr.h>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>

#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

namespace vtx::test {

/// Writes netlink messages as the kernel does.
class NetlinkBuilder {
public:
    static constexpr std::uint32_t port = 7;
    static constexpr std::uint32_t sequence = 1;

    std::vector<std::byte> bytes;

    template <class Value>
    NetlinkBuilder& raw(const Value& value) {
        const auto all = std::as_bytes(std::span(&value, 1));
        bytes.insert(bytes.end(), all.begin(), all.end());
        return *this;
    }
    /// Begins a message, which the next one or `end` ends.
    NetlinkBuilder& message(int type, int flags = 0, std::uint32_t ofSequence = sequence,
                            std::uint32_t ofPort = port) {
        end();
        start_ = bytes.size();
        return raw(nlmsghdr{0, static_cast<std::uint16_t>(type), static_cast<std::uint16_t>(flags),
                            ofSequence, ofPort});
    }
    NetlinkBuilder& end() {
        if (start_ != none) {
            const auto length = static_cast<std::uint32_t>(bytes.size() - start_);
            std::memcpy(bytes.data() + start_, &length, sizeof(length));
        }
        start_ = none;
        return *this;
    }
    NetlinkBuilder& attribute(int type, std::span<const std::byte> payload) {
        raw(nlattr{static_cast<std::uint16_t>(sizeof(nlattr) + payload.size()),
                   static_cast<std::uint16_t>(type)});
        bytes.insert(bytes.end(), payload.begin(), payload.end());
        while (bytes.size() % 4 != 0) bytes.push_back(std::byte{0});
        return *this;
    }
    NetlinkBuilder& text(int type, std::string_view value) {
        std::vector<std::byte> payload(value.size() + 1);
        std::memcpy(payload.data(), value.data(), value.size());
        return attribute(type, payload);
    }
    NetlinkBuilder& link(int index, int hardwareType, unsigned flags) {
        message(RTM_NEWLINK, NLM_F_MULTI);
        ifinfomsg body{};
        body.ifi_type = static_cast<unsigned short>(hardwareType);
        body.ifi_index = index;
        body.ifi_flags = flags;
        return raw(body);
    }
    NetlinkBuilder& address(int family, std::uint32_t index, int scope = RT_SCOPE_UNIVERSE) {
        message(RTM_NEWADDR, NLM_F_MULTI);
        ifaddrmsg body{};
        body.ifa_family = static_cast<unsigned char>(family);
        body.ifa_scope = static_cast<unsigned char>(scope);
        body.ifa_index = index;
        return raw(body);
    }
    NetlinkBuilder& done() { return message(NLMSG_DONE, NLM_F_MULTI).raw(0).end(); }

private:
    static constexpr std::size_t none = ~std::size_t{0};
    std::size_t start_ = none;
};

}  // namespace vtx::test
