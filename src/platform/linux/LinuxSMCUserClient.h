// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SMCUserClient.h"

namespace vtx {

/// The user client of a machine without such a controller: a search finds no service. Owned by the
/// platform.
class LinuxSMCUserClient final : public SMCUserClient {
public:
    [[nodiscard]] std::optional<ServiceMatch> serviceMatching(std::string_view className) override;
    [[nodiscard]] RegistryWalk getMatchingServices(const ServiceMatch& match) override;
    [[nodiscard]] RegistryEntry iteratorNext(const RegistryIterator& iterator) override;
    [[nodiscard]] std::optional<std::string> entryGetName(const RegistryEntry& entry) override;
    [[nodiscard]] SMCOpened serviceOpen(const RegistryEntry& service, std::uint32_t type) override;
    [[nodiscard]] KernReturn connectCallStructMethod(const SMCConnection& connection,
                                                     std::uint32_t selector,
                                                     std::span<const std::byte> input,
                                                     std::span<std::byte> output,
                                                     std::size_t& outputSize) override;
    void serviceClose(IOConnect connection) noexcept override;
    void objectRelease(IOObject object) noexcept override;
};

}  // namespace vtx
