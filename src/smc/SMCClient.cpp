// SPDX-License-Identifier: MIT
#include "smc/SMCClient.h"

#include <algorithm>

#include "platform/SMCUserClient.h"
#include "smc/SMCCode.h"

namespace vtx {
namespace {

using Command = SMCParameterBlock::Command;

constexpr std::string_view serviceClass = "AppleSMC";
constexpr std::string_view endpointName = "AppleSMCKeysEndpoint";
constexpr std::uint32_t selector = 2;

}  // namespace

SMCConnection SMCClient::openConnection(SMCUserClient& port) {
    const auto match = port.serviceMatching(serviceClass);
    if (!match) return {};
    const auto services = port.getMatchingServices(*match);
    if (services.result != kernSuccess || !services.iterator) return {};
    while (const auto service = port.iteratorNext(services.iterator)) {
        if (port.entryGetName(service) != endpointName) continue;
        auto opened = port.serviceOpen(service, 0);
        if (opened.result != kernSuccess) return {};
        return std::move(opened.connection);
    }
    return {};
}

std::optional<KeyInfo> SMCClient::readKeyInfo(std::uint32_t code) {
    if (const auto known = keyInfoCache_.find(code); known != keyInfoCache_.end())
        return known->second;
    SMCParameterBlock question;
    question.setKey(code);
    question.setCommand(Command::keyInformation);
    const auto answer = callSMC(question);
    if (!answer) return std::nullopt;
    return keyInfoCache_.emplace(code, answer->info()).first->second;
}

std::optional<SMCClient::Value> SMCClient::readValue(std::string_view key) {
    const std::uint32_t code = smcCode(key);
    const auto info = readKeyInfo(code);
    if (!info) return std::nullopt;
    SMCParameterBlock question;
    question.setKey(code);
    question.setInfo(*info);
    question.setCommand(Command::readValue);
    const auto answer = callSMC(question);
    if (!answer) return std::nullopt;
    const auto bytes = answer->value(info->dataSize);
    Value value{*info, {}, bytes.size()};
    std::ranges::copy(bytes, value.room.begin());
    return value;
}

std::optional<std::uint32_t> SMCClient::keyAtIndex(std::uint32_t index) {
    SMCParameterBlock question;
    question.setIndex(index);
    question.setCommand(Command::keyAtIndex);
    const auto answer = callSMC(question);
    return answer ? std::optional(answer->key()) : std::nullopt;
}

std::optional<SMCParameterBlock> SMCClient::callSMC(const SMCParameterBlock& input) {
    SMCParameterBlock output;
    std::size_t outputSize = SMCParameterBlock::size;
    const auto result =
        port_.connectCallStructMethod(connection_, selector, input.raw(), output.raw(), outputSize);
    if (result != kernSuccess || outputSize < SMCParameterBlock::leastOutputSize ||
        output.result() != 0)
        return std::nullopt;
    return output;
}

}  // namespace vtx
