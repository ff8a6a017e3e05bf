// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>

#include "platform/SMCConnection.h"
#include "smc/SMCParameterBlock.h"

namespace vtx {

class SMCUserClient;

/// The SMC's protocol over one connection, with what the SMC told of its keys. A read has one
/// failure, "no value", whatever the reason, and nothing is logged. There is no reconnect: a
/// connection that went bad gives no value from then on. Each class that speaks to the SMC has one
/// of its own and uses it from one context at a time; the connection closes with it.
class SMCClient {
public:
    /// The value of a key: what the SMC told of the key, and at most 32 bytes.
    struct Value {
        KeyInfo info;
        std::array<std::byte, SMCParameterBlock::valueRoom> room{};
        std::size_t count = 0;

        [[nodiscard]] std::span<const std::byte> bytes() const {
            return std::span(room).first(count);
        }
    };

    /// Opens the user client of the service that holds the keys; null where there is none.
    static SMCConnection openConnection(SMCUserClient& port);

    /// The port must outlive the client.
    SMCClient(SMCUserClient& port, SMCConnection connection)
        : port_(port), connection_(std::move(connection)) {}

    /// What the SMC tells of a key. Asked once for each key: a later change stays unseen, while a
    /// failure is asked again with the next use.
    [[nodiscard]] std::optional<KeyInfo> readKeyInfo(std::uint32_t code);

    [[nodiscard]] std::optional<Value> readValue(std::string_view key);

    /// The code of the key at a place in the SMC's list.
    [[nodiscard]] std::optional<std::uint32_t> keyAtIndex(std::uint32_t index);

private:
    [[nodiscard]] std::optional<SMCParameterBlock> callSMC(const SMCParameterBlock& input);

    SMCUserClient& port_;
    SMCConnection connection_;
    std::unordered_map<std::uint32_t, KeyInfo> keyInfoCache_;
};

}  // namespace vtx
