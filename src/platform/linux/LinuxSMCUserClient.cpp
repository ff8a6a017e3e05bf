// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSMCUserClient.h"

#include <algorithm>

#include "base/Fault.h"

namespace vtx {
namespace {

constexpr std::string_view serviceClass = "AppleSMC";
constexpr const char* serviceName = "AppleSMCKeysEndpoint";
constexpr std::uint32_t structMethod = 2;

}  // namespace

std::optional<ServiceMatch> LinuxSMCUserClient::serviceMatching(std::string_view className) {
    return ServiceMatch{className};
}

RegistryWalk LinuxSMCUserClient::getMatchingServices(const ServiceMatch& match) {
    if (match.className != serviceClass || keys_.isEmpty()) return {kernSuccess, {}};
    return {kernSuccess, {*this, keep(Object::walkBefore)}};
}

RegistryEntry LinuxSMCUserClient::iteratorNext(const RegistryIterator& iterator) {
    {
        const std::lock_guard lock(mutex_);
        const auto found = objects_.find(iterator.get());
        if (found == objects_.end() || found->second != Object::walkBefore) return {};
        found->second = Object::walkBehind;
    }
    return {*this, keep(Object::service)};
}

std::optional<std::string> LinuxSMCUserClient::entryGetName(const RegistryEntry& entry) {
    if (!isService(entry)) return std::nullopt;
    return serviceName;
}

SMCOpened LinuxSMCUserClient::serviceOpen(const RegistryEntry& service, std::uint32_t) {
    if (!isService(service)) return {ioReturnNoDevice, {}};
    const std::lock_guard lock(mutex_);
    do ++lastConnection_;
    while (lastConnection_ == ioConnectNull || connections_.contains(lastConnection_));
    connections_.insert(lastConnection_);
    return {kernSuccess, SMCConnection(*this, lastConnection_)};
}

KernReturn LinuxSMCUserClient::connectCallStructMethod(const SMCConnection& connection,
                                                       std::uint32_t selector,
                                                       std::span<const std::byte> input,
                                                       std::span<std::byte> output,
                                                       std::size_t& outputSize) {
    if (!isOpen(connection)) return ioReturnNotOpen;
    const auto request = decodeSMCRequest(input);
    if (selector != structMethod || !request) return ioReturnBadArgument;
    if (request->command == smcCommands::writeValue) return ioReturnNotPrivileged;
    const SMCBlock answer = encodeSMCAnswer(keys_.answer(*request));
    outputSize = std::min({outputSize, output.size(), answer.size()});
    std::copy_n(answer.begin(), outputSize, output.begin());
    return kernSuccess;
}

void LinuxSMCUserClient::serviceClose(IOConnect connection) noexcept {
    const std::lock_guard lock(mutex_);
    if (connections_.erase(connection) == 0)
        programmingFault("a connection to the sensors was closed that is not open");
}

void LinuxSMCUserClient::objectRelease(IOObject object) noexcept {
    const std::lock_guard lock(mutex_);
    if (objects_.erase(object) == 0)
        programmingFault("an object of the sensors was released that is not there");
}

std::size_t LinuxSMCUserClient::outstanding() const {
    const std::lock_guard lock(mutex_);
    return objects_.size() + connections_.size();
}

IOObject LinuxSMCUserClient::keep(Object object) {
    const std::lock_guard lock(mutex_);
    do ++lastObject_;
    while (lastObject_ == ioObjectNull || objects_.contains(lastObject_));
    objects_.emplace(lastObject_, object);
    return lastObject_;
}

bool LinuxSMCUserClient::isService(const RegistryEntry& entry) const {
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(entry.get());
    return found != objects_.end() && found->second == Object::service;
}

bool LinuxSMCUserClient::isOpen(const SMCConnection& connection) const {
    const std::lock_guard lock(mutex_);
    return connections_.contains(connection.get());
}

}  // namespace vtx
