// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedSMCUserClient.h"

#include <algorithm>
#include <utility>

#include "base/Fault.h"
#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

constexpr std::string_view serviceClass = "AppleSMC";
constexpr std::uint32_t structMethod = 2;
/// A name is read into a buffer of 128 bytes, the zero byte at its end included.
constexpr std::size_t longestName = 127;

}  // namespace

std::optional<ServiceMatch> SimulatedSMCUserClient::serviceMatching(std::string_view className) {
    if (instruments_.enter(operations::serviceMatching)) return std::nullopt;
    return ServiceMatch{className};
}

RegistryWalk SimulatedSMCUserClient::getMatchingServices(const ServiceMatch& match) {
    if (const auto failure = instruments_.enter(operations::getMatchingServices))
        return {*failure, {}};
    if (instruments_.failures.take(operations::getMatchingServicesNull)) return {kernSuccess, {}};
    Object walk;
    if (match.className == serviceClass) walk.ahead = {smc_.services.begin(), smc_.services.end()};
    walk.held = instruments_.handles.hold(handles::registryIterator);
    return {kernSuccess, {*this, keep(std::move(walk))}};
}

RegistryEntry SimulatedSMCUserClient::iteratorNext(const RegistryIterator& iterator) {
    if (instruments_.enter(operations::iteratorNext)) return {};
    Object service;
    {
        const std::lock_guard lock(mutex_);
        const auto walk = objects_.find(iterator.get());
        if (walk == objects_.end() || walk->second.ahead.empty()) return {};
        service.name = std::move(walk->second.ahead.front());
        walk->second.ahead.pop_front();
    }
    service.held = instruments_.handles.hold(handles::registryEntry);
    return {*this, keep(std::move(service))};
}

std::optional<std::string> SimulatedSMCUserClient::entryGetName(const RegistryEntry& entry) {
    if (instruments_.enter(operations::getName)) return std::nullopt;
    const std::lock_guard lock(mutex_);
    const auto service = objects_.find(entry.get());
    if (service == objects_.end()) return std::nullopt;
    return service->second.name.substr(0, longestName);
}

SMCOpened SimulatedSMCUserClient::serviceOpen(const RegistryEntry& service, std::uint32_t) {
    if (const auto failure = instruments_.enter(operations::serviceOpen)) return {*failure, {}};
    if (instruments_.failures.take(operations::serviceOpenNull)) return {kernSuccess, {}};
    if (!service) return {ioReturnBadArgument, {}};
    const std::lock_guard lock(mutex_);
    connections_.emplace(++lastConnection_, instruments_.handles.hold(handles::smcConnection));
    return {kernSuccess, {*this, lastConnection_}};
}

KernReturn SimulatedSMCUserClient::connectCallStructMethod(const SMCConnection& connection,
                                                           std::uint32_t selector,
                                                           std::span<const std::byte> input,
                                                           std::span<std::byte> output,
                                                           std::size_t& outputSize) {
    if (const auto failure = instruments_.enter(operations::connectCallStructMethod))
        return *failure;
    if (!isOpen(connection)) return ioReturnNotOpen;
    const auto request = decodeSMCRequest(input);
    if (selector != structMethod || !request || output.size() < smcBlockSize ||
        outputSize < smcBlockSize)
        return ioReturnBadArgument;
    count(request->command);
    if (request->command == smcCommands::writeValue && !smc_.mayWrite) return ioReturnNotPrivileged;
    std::ranges::copy(encodeSMCAnswer(smc_.answer(*request)), output.begin());
    const auto claimed = instruments_.failures.take(operations::connectCallStructMethodOutputSize);
    outputSize = claimed ? static_cast<std::size_t>(*claimed) : smcBlockSize;
    return kernSuccess;
}

void SimulatedSMCUserClient::serviceClose(IOConnect connection) noexcept {
    instruments_.counter.count(operations::serviceClose);
    const std::lock_guard lock(mutex_);
    if (connections_.erase(connection) == 0)
        programmingFault("a connection to the SMC was closed that is not open");
}

void SimulatedSMCUserClient::objectRelease(IOObject object) noexcept {
    instruments_.counter.count(operations::objectRelease);
    const std::lock_guard lock(mutex_);
    if (objects_.erase(object) == 0)
        programmingFault("an object of the SMC was released that is not there");
}

IOObject SimulatedSMCUserClient::keep(Object object) {
    const std::lock_guard lock(mutex_);
    objects_.emplace(++lastObject_, std::move(object));
    return lastObject_;
}

bool SimulatedSMCUserClient::isOpen(const SMCConnection& connection) const {
    const std::lock_guard lock(mutex_);
    return connections_.contains(connection.get());
}

void SimulatedSMCUserClient::count(std::uint8_t command) {
    switch (command) {
        case smcCommands::readValue:
            return instruments_.counter.count(operations::smcReadValue);
        case smcCommands::writeValue:
            return instruments_.counter.count(operations::smcWriteValue);
        case smcCommands::keyAtIndex:
            return instruments_.counter.count(operations::smcKeyAtIndex);
        case smcCommands::keyInformation:
            return instruments_.counter.count(operations::smcKeyInformation);
        default:
            return;
    }
}

}  // namespace vtx
