// SPDX-License-Identifier: MIT
// Which of the SMC's keys are temperatures of the processor, and which of those are known to be hot
// spots.
#include <algorithm>
#include <unordered_set>

#include "smc/SMCBridge.h"
#include "smc/SMCCode.h"

namespace vtx {
namespace {

/// Far beyond the keys of any machine: a store that counts more is not walked any further, as it
/// would keep the start waiting for minutes.
constexpr std::uint32_t mostKeys = 65'536;

std::uint32_t countKeys(SMCClient& client) {
    const auto value = client.readValue("#KEY");
    if (!value || value->count < 4) return 0;
    std::uint32_t count = 0;
    for (const std::byte byte : value->bytes().first<4>())
        count = (count << 8) | std::to_integer<std::uint32_t>(byte);
    return std::min(count, mostKeys);
}

/// The characters of a key; absent where they are no ASCII.
std::optional<std::string> keyText(std::uint32_t code) {
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const auto byte = (code >> shift) & 0xffU;
        if (byte > 0x7f) return std::nullopt;
        text.push_back(static_cast<char>(byte));
    }
    return text;
}

}  // namespace

SMCBridge::SensorKeys SMCBridge::discoverSensorKeys(SMCClient& client) {
    SensorKeys found;
    std::unordered_set<std::uint32_t> taken;  // keys may move while they are walked
    const std::uint32_t count = countKeys(client);
    for (std::uint32_t index = 0; index < count; ++index) {
        const auto code = client.keyAtIndex(index);
        if (!code) continue;
        auto key = keyText(*code);
        if (!key) continue;
        const auto info = client.readKeyInfo(*code);
        if (!info || info->dataSize != 4 || info->dataType != smcTypes::flt) continue;
        // What it says does not matter: that it answers does.
        if (!client.readValue(*key)) continue;
        if (isCPUSensor(*key) && taken.insert(*code).second) found.cpu.push_back(*std::move(key));
    }
    return found;
}

bool SMCBridge::isCPUSensor(std::string_view key) {
    if (key.starts_with("TC")) return true;
    return key.size() == 4 &&
           (key.starts_with("Tp") || key.starts_with("Te") || key.starts_with("Tf"));
}

SensorKeySet SMCBridge::hardcodedHotSpotDenylist(std::string_view chip) {
    const auto holds = [chip](std::string_view part) {
        return chip.find(part) != std::string_view::npos;
    };
    if (!holds("Apple M3") || holds("Pro") || holds("Max")) return {};
    return {"Tp02", "Tp06", "Tp0A", "Tp0E", "Tp0I", "Tp0M", "Tp0Q", "Tp0U",
            "Tp0Y", "Tp0c", "Tp0g", "Tp0k", "Tp0o", "Tp0s", "Tp0w", "Tp10",
            "Tp14", "Tp18", "Tp1F", "Tp1I", "Tp1L", "Te06", "Te0M"};
}

}  // namespace vtx
