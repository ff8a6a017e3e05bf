// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "base/Data.h"

namespace vtx {

/// Bytes of the one block that crosses the SMC's user client, each way.
inline constexpr std::size_t smcBlockSize = 80;
/// Bytes of a value that have room in it; what is beyond does not cross.
inline constexpr std::size_t smcValueRoom = 32;

using SMCBlock = std::array<std::byte, smcBlockSize>;

/// What a block asks for.
namespace smcCommands {
inline constexpr std::uint8_t readValue = 5;
inline constexpr std::uint8_t writeValue = 6;
inline constexpr std::uint8_t keyAtIndex = 8;
inline constexpr std::uint8_t keyInformation = 9;
}  // namespace smcCommands

/// How the SMC answers; any other number is a failure too.
namespace smcResults {
inline constexpr std::uint8_t success = 0;
inline constexpr std::uint8_t failure = 1;
inline constexpr std::uint8_t keyNotFound = 0x84;
}  // namespace smcResults

/// A block as a key store receives it. Which fields mean something is the command's.
struct SMCRequest {
    std::uint32_t key = 0;  ///< packed code
    std::uint32_t dataSize = 0;
    std::uint32_t dataType = 0;  ///< packed code
    std::uint8_t attributes = 0;
    std::uint8_t command = 0;
    std::uint32_t index = 0;
    std::array<std::byte, smcValueRoom> bytes{};

    friend bool operator==(const SMCRequest&, const SMCRequest&) = default;
};

/// What a key store answers.
struct SMCAnswer {
    std::uint32_t key = 0;
    std::uint32_t dataSize = 0;
    std::uint32_t dataType = 0;
    std::uint8_t attributes = 0;
    std::uint8_t result = smcResults::success;
    Data bytes;  ///< of the value; as many as have room are sent
};

/// The code of a key or of a type: its bytes, the first one highest. Of more than four the last
/// four count.
[[nodiscard]] std::uint32_t packSMCCode(std::string_view text);

/// Absent for anything but 80 bytes.
[[nodiscard]] std::optional<SMCRequest> decodeSMCRequest(std::span<const std::byte> block);

[[nodiscard]] SMCBlock encodeSMCAnswer(const SMCAnswer& answer);

}  // namespace vtx
