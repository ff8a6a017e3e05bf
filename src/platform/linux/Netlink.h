// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

/// Reading of netlink messages. Lengths in them are never trusted: what they promise and the bytes
/// do not hold is not there.
namespace vtx::netlink {

using Bytes = std::span<const std::byte>;

struct Message {
    std::uint16_t type = 0;
    std::uint16_t flags = 0;
    std::uint32_t sequence = 0;
    std::uint32_t port = 0;  ///< of the socket that it answers; 0 for what was announced
    Bytes payload;
};

struct Attribute {
    std::uint16_t type = 0;  ///< without the bits that say how its payload is written
    Bytes payload;
};

/// Takes the next message off the front; absent at the end and where the rest is not a whole one,
/// as in a datagram that was cut.
[[nodiscard]] std::optional<Message> takeMessage(Bytes& bytes);
/// The same for attributes.
[[nodiscard]] std::optional<Attribute> takeAttribute(Bytes& bytes);
/// The first attribute of a type.
[[nodiscard]] std::optional<Bytes> attribute(Bytes attributes, std::uint16_t type);

/// The value of the kernel's type at the front, whatever its alignment, which goes off the front
/// with its padding; absent where there are too few bytes.
template <class Value>
[[nodiscard]] std::optional<Value> take(Bytes& bytes) {
    static_assert(std::is_trivially_copyable_v<Value>);
    if (bytes.size() < sizeof(Value)) return std::nullopt;
    Value value{};
    std::memcpy(&value, bytes.data(), sizeof(Value));
    constexpr std::size_t padded = (sizeof(Value) + 3) & ~std::size_t{3};
    bytes = bytes.subspan(padded < bytes.size() ? padded : bytes.size());
    return value;
}

/// A text up to its zero byte, or up to the end where there is none.
[[nodiscard]] std::string_view text(Bytes bytes);

}  // namespace vtx::netlink
