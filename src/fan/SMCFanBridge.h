// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "smc/SMCClient.h"

namespace vtx {

/// Reads the keys of the fans through a connection of its own. Owned by `FanMonitor`; main
/// executor.
class SMCFanBridge {
public:
    /// Absent where the SMC cannot be opened. The port must outlive the bridge.
    static std::optional<SMCFanBridge> open(SMCUserClient& port);

    /// A value as it comes; absent where the read fails, or where the key is of another type or
    /// size than expected.
    [[nodiscard]] std::optional<SMCClient::Value> readRaw(
        std::string_view key, std::optional<std::uint32_t> expectedType = std::nullopt,
        std::optional<std::uint32_t> expectedSize = std::nullopt);

    /// The number of fans that the SMC tells; absent where it tells none.
    [[nodiscard]] std::optional<int> readFanCount();

    /// The speed by the key of a fan: "F", its index, and a suffix such as "Ac". Absent for what no
    /// fan can turn at.
    [[nodiscard]] std::optional<int> readRPM(int index, std::string_view suffix);

private:
    explicit SMCFanBridge(SMCClient client) : client_(std::move(client)) {}

    SMCClient client_;
};

}  // namespace vtx
