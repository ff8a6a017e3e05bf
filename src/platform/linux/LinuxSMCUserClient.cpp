// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSMCUserClient.h"

namespace vtx {

std::optional<ServiceMatch> LinuxSMCUserClient::serviceMatching(std::string_view className) {
    return ServiceMatch{std::string(className)};
}

RegistryWalk LinuxSMCUserClient::getMatchingServices(const ServiceMatch&) {
    return {kernSuccess, {}};
}

RegistryEntry LinuxSMCUserClient::iteratorNext(const RegistryIterator&) { return {}; }

std::optional<std::string> LinuxSMCUserClient::entryGetName(const RegistryEntry&) {
    return std::nullopt;
}

SMCOpened LinuxSMCUserClient::serviceOpen(const RegistryEntry&, std::uint32_t) {
    return {ioReturnNoDevice, {}};
}

KernReturn LinuxSMCUserClient::connectCallStructMethod(const SMCConnection&, std::uint32_t,
                                                       std::span<const std::byte>,
                                                       std::span<std::byte>, std::size_t&) {
    return ioReturnNotOpen;
}

void LinuxSMCUserClient::serviceClose(IOConnect) noexcept {}

void LinuxSMCUserClient::objectRelease(IOObject) noexcept {}

}  // namespace vtx
