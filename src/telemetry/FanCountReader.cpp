// SPDX-License-Identifier: MIT
#include "telemetry/FanCountReader.h"

#include <algorithm>
#include <array>
#include <span>

#include "platform/SMCUserClient.h"

namespace vtx {
namespace {

constexpr std::uint32_t selector = 2;
constexpr std::size_t blockSize = 80;
constexpr std::size_t commandAt = 22;
constexpr std::size_t resultAt = 40;
constexpr std::size_t valueAt = 48;
constexpr std::byte readCommand{5};
constexpr int mostFans = 10;

}  // namespace

std::int64_t FanCountReader::count() {
    const auto match = smc_.serviceMatching("AppleSMC");
    if (!match) return 0;
    const auto services = smc_.getMatchingServices(*match);
    if (services.result != kernSuccess || !services.iterator) return 0;
    const auto service = smc_.iteratorNext(services.iterator);
    if (!service) return 0;
    if (const auto number = readBytes(service, "FNum"))
        return std::to_integer<std::int64_t>(number->front());
    for (int fan = 0; fan < mostFans; ++fan) {
        const std::array<char, 4> key{'F', static_cast<char>('0' + fan), 'A', 'c'};
        if (!readBytes(service, {key.data(), key.size()})) return fan;
    }
    return mostFans;
}

std::optional<Data> FanCountReader::readBytes(const RegistryEntry& service, std::string_view key) {
    const auto [result, connection] = smc_.serviceOpen(service, 0);
    if (result != kernSuccess || !connection) return std::nullopt;
    std::array<std::byte, blockSize> request{};
    std::array<std::byte, blockSize> reply{};
    std::ranges::copy(toData(key), request.begin());
    request[commandAt] = readCommand;
    std::size_t size = reply.size();
    if (smc_.connectCallStructMethod(connection, selector, request, reply, size) != kernSuccess)
        return std::nullopt;
    // What it says that it filled nobody has checked.
    const auto filled = std::span(reply).first(std::min(size, reply.size()));
    if (filled.size() <= valueAt || filled[resultAt] != std::byte{0}) return std::nullopt;
    const auto value = filled.subspan(valueAt);
    return Data(value.begin(), value.end());
}

}  // namespace vtx
