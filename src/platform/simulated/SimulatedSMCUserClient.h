// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SMCUserClient.h"

namespace vtx {

/// The user client of a simulated machine without an SMC.
class SimulatedSMCUserClient final : public SMCUserClient {
public:
    [[nodiscard]] std::optional<ServiceMatch> serviceMatching(std::string_view name) override {
        return ServiceMatch{std::string(name)};
    }
    [[nodiscard]] RegistryWalk getMatchingServices(const ServiceMatch&) override {
        return {kernSuccess, {}};
    }
    [[nodiscard]] RegistryEntry iteratorNext(const RegistryIterator&) override { return {}; }
    [[nodiscard]] std::optional<std::string> entryGetName(const RegistryEntry&) override {
        return std::nullopt;
    }
    [[nodiscard]] SMCOpened serviceOpen(const RegistryEntry&, std::uint32_t) override {
        return {ioReturnNoDevice, {}};
    }
    [[nodiscard]] KernReturn connectCallStructMethod(const SMCConnection&, std::uint32_t,
                                                     std::span<const std::byte>,
                                                     std::span<std::byte>, std::size_t&) override {
        return ioReturnNotOpen;
    }
    void serviceClose(IOConnect) noexcept override {}
    void objectRelease(IOObject) noexcept override {}
};

}  // namespace vtx
