// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vtx {

/// What the SMC tells of a key: the cached answer of command 9.
struct KeyInfo {
    std::uint32_t dataSize = 0;   ///< bytes of the value; may exceed what a block carries
    std::uint32_t dataType = 0;   ///< packed code of the type
    std::uint8_t attributes = 0;  ///< carried through unread

    friend bool operator==(const KeyInfo&, const KeyInfo&) = default;
};

/// The record that crosses the SMC's user client, as input and as output. Every byte that is not
/// set is zero. Numbers stand in it with their lowest byte first, whatever the machine's own order.
class SMCParameterBlock {
public:
    static constexpr std::size_t size = 80;
    /// Bytes of a value that a block carries at most.
    static constexpr std::size_t valueRoom = 32;
    /// An output that is shorter cannot hold an answer.
    static constexpr std::size_t leastOutputSize = 48;

    enum class Command : std::uint8_t {
        readValue = 5,
        writeValue = 6,
        keyAtIndex = 8,
        keyInformation = 9
    };

    void setKey(std::uint32_t code) { put(keyAt, code); }
    void setInfo(const KeyInfo& info) {
        put(dataSizeAt, info.dataSize);
        put(dataTypeAt, info.dataType);
        bytes_[attributesAt] = std::byte{info.attributes};
    }
    void setCommand(Command command) { bytes_[commandAt] = static_cast<std::byte>(command); }
    void setIndex(std::uint32_t index) { put(indexAt, index); }
    /// What is beyond 32 bytes is left out.
    void setValue(std::span<const std::byte> value) {
        const auto room = std::span(bytes_).subspan<valueAt>();
        std::ranges::copy(value.first(std::min(value.size(), room.size())), room.begin());
    }

    [[nodiscard]] std::uint32_t key() const { return number(keyAt); }
    [[nodiscard]] KeyInfo info() const {
        return {number(dataSizeAt), number(dataTypeAt), byte(attributesAt)};
    }
    /// 0 is success.
    [[nodiscard]] std::uint8_t result() const { return byte(resultAt); }
    /// The first bytes of the value, at most 32 of them.
    [[nodiscard]] std::span<const std::byte> value(std::size_t count) const {
        return std::span(bytes_).subspan(valueAt, std::min(count, valueRoom));
    }

    [[nodiscard]] std::span<const std::byte, size> raw() const { return bytes_; }
    [[nodiscard]] std::span<std::byte, size> raw() { return bytes_; }

private:
    static constexpr std::size_t keyAt = 0;
    static constexpr std::size_t dataSizeAt = 28;
    static constexpr std::size_t dataTypeAt = 32;
    static constexpr std::size_t attributesAt = 36;
    static constexpr std::size_t resultAt = 40;
    static constexpr std::size_t commandAt = 42;
    static constexpr std::size_t indexAt = 44;
    static constexpr std::size_t valueAt = 48;

    void put(std::size_t offset, std::uint32_t value) {
        for (std::size_t i = 0; i < 4; ++i, value >>= 8)
            bytes_[offset + i] = static_cast<std::byte>(value & 0xffU);
    }
    [[nodiscard]] std::uint32_t number(std::size_t offset) const {
        std::uint32_t value = 0;
        for (std::size_t i = 4; i-- > 0;) value = (value << 8) | byte(offset + i);
        return value;
    }
    [[nodiscard]] std::uint8_t byte(std::size_t offset) const {
        return std::to_integer<std::uint8_t>(bytes_[offset]);
    }

    std::array<std::byte, size> bytes_{};
};

}  // namespace vtx
