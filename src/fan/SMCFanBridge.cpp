// SPDX-License-Identifier: MIT
#include "fan/SMCFanBridge.h"

#include <fmt/format.h>

#include <cmath>
#include <utility>

#include "platform/SMCUserClient.h"
#include "smc/SMCCode.h"
#include "smc/SMCNumericDecoder.h"

namespace vtx {
namespace {

constexpr double beyondAnySpeed = 12000.0;

}  // namespace

std::optional<SMCFanBridge> SMCFanBridge::open(SMCUserClient& port) {
    auto connection = SMCClient::openConnection(port);
    if (!connection) return std::nullopt;
    return SMCFanBridge(SMCClient(port, std::move(connection)));
}

std::optional<SMCClient::Value> SMCFanBridge::readRaw(std::string_view key,
                                                      std::optional<std::uint32_t> expectedType,
                                                      std::optional<std::uint32_t> expectedSize) {
    const auto info = client_.readKeyInfo(smcCode(key));
    if (!info || (expectedType && info->dataType != *expectedType) ||
        (expectedSize && info->dataSize != *expectedSize))
        return std::nullopt;
    return client_.readValue(key);
}

std::optional<int> SMCFanBridge::readFanCount() {
    const auto value = readRaw("FNum");
    if (!value || value->count == 0) return std::nullopt;
    return std::to_integer<int>(value->room[0]);
}

std::optional<int> SMCFanBridge::readRPM(int index, std::string_view suffix) {
    const auto value = readRaw(fmt::format("F{}{}", index, suffix));
    if (!value) return std::nullopt;
    const auto rpm = decodeNumeric(value->bytes(), value->info.dataType, value->info.dataSize);
    if (!rpm || !(*rpm >= 0.0 && *rpm < beyondAnySpeed)) return std::nullopt;
    return static_cast<int>(std::lround(*rpm));
}

}  // namespace vtx
